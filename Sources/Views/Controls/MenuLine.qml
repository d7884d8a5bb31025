import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A line of a menu.
MenuItem {
    id: line

    /// A line that is not shown takes no place.
    property bool shown: true
    property bool destructive: false

    readonly property color contentColor: !enabled ? Theme.secondaryText : highlighted ? Theme.accentText : destructive ? Theme.red : Theme.text

    visible: shown
    height: shown ? 32 : 0
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    // The check mark stands at the end of the line, whichever that is.
    leftPadding: checkable && mirrored ? 40 : 12
    rightPadding: checkable && !mirrored ? 40 : 12
    topPadding: 0
    bottomPadding: 0
    font.pixelSize: Theme.bodySize
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()

    contentItem: PlainText {
        text: line.text
        font: line.font
        color: line.contentColor
        verticalAlignment: Text.AlignVCenter
    }
    indicator: Symbol {
        x: line.mirrored ? 12 : line.width - width - 12
        anchors.verticalCenter: parent.verticalCenter
        visible: line.checkable && line.checked
        name: "checkmark"
        size: 14
        color: line.contentColor
    }
    background: Rectangle {
        radius: 6
        color: line.highlighted && line.enabled ? Theme.accent : "transparent"
    }
}
