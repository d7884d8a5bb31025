import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// One of the tabs of a window.
TabButton {
    id: button

    required property string symbol

    width: Math.max(88, implicitContentWidth + 24)
    height: 52
    padding: 6
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    font.pixelSize: 11
    font.weight: Font.Medium
    Accessible.name: text
    Accessible.selected: checked
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }

    contentItem: Column {
        spacing: 4

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: button.symbol
            size: 20
            color: button.checked ? Theme.accent : Theme.secondaryText
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: button.text
            font: button.font
            color: button.checked ? Theme.accent : Theme.secondaryText
        }
    }
    background: Rectangle {
        radius: 8
        color: button.checked || button.down ? Theme.surfacePressed : button.hovered ? Theme.surfaceHovered : "transparent"

        FocusRing { target: button }
    }
}
