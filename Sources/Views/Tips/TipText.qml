import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// The text of a tip, which scrolls where it has less room than it needs.
Flickable {
    id: scroller

    required property string text

    readonly property bool isCut: contentHeight > height
    readonly property bool hovered: pointer.hovered

    implicitWidth: label.width
    implicitHeight: label.height
    contentHeight: label.height
    boundsBehavior: Flickable.StopAtBounds
    interactive: isCut
    clip: true
    ScrollBar.vertical: ThinScrollBar {}

    PlainText {
        id: label
        objectName: "toolTip"
        width: Math.min(Math.ceil(implicitWidth), 360)
        // The scroll bar of a long one is beside it.
        rightPadding: text.length > 700 ? 12 : 0
        text: scroller.text
        font.pixelSize: Theme.captionSize
        wrapMode: Text.Wrap
    }
    HoverHandler {
        id: pointer
        blocking: scroller.isCut
    }
}
