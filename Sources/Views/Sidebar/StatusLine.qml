import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// How the last operation went, and how far one on this machine is. Nothing of it is cut: what
/// is longer than its place scrolls, and all of it can be selected and copied.
Item {
    id: line

    required property SidebarModel model
    /// Of the texts, beyond which they scroll.
    required property int maximumHeight

    implicitHeight: scroll.height

    Symbol {
        id: symbol
        objectName: "statusSymbol"
        anchors.left: parent.left
        y: 1
        size: 14
        name: line.model.isError ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
        color: line.model.isError ? Theme.red : Theme.green
    }
    Flickable {
        id: scroll
        objectName: "statusPlace"
        anchors.left: symbol.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        height: Math.min(contentHeight, line.maximumHeight)
        contentHeight: texts.height
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true
        ScrollBar.vertical: ThinScrollBar {
            parent: line
            x: Theme.system.isRightToLeft ? -14 : line.width
            height: scroll.height
        }

        Column {
            id: texts
            width: parent.width
            spacing: 8

            SelectableText {
                objectName: "status"
                width: parent.width
                text: line.model.status
            }
            StaticText {
                width: parent.width
                wrapMode: Text.Wrap
                visible: text !== ""
                text: line.model.progressText
                color: Theme.secondaryText
                font.pixelSize: Theme.captionSize
            }
        }
    }
}
