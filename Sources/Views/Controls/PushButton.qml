import QtQuick
import Quorvane.Views

/// A button with a text, a symbol or both. The prominent one is the window's main action.
PressableButton {
    id: button

    property string symbol: ""
    property bool prominent: false
    property bool destructive: false
    property bool busy: false
    property string tip: ""

    readonly property color contentColor: !enabled ? Theme.secondaryText : prominent ? Theme.accentText : destructive ? Theme.red : Theme.text

    leftPadding: text === "" ? 8 : 12
    rightPadding: leftPadding
    topPadding: 8
    bottomPadding: 8
    font.pixelSize: Theme.bodySize
    font.weight: prominent ? Font.DemiBold : Font.Normal
    Accessible.name: text === "" ? tip : text
    Accessible.description: tip

    contentItem: ButtonContent {
        text: button.text
        symbol: button.symbol
        busy: button.busy
        color: button.contentColor
        font: button.font
    }
    background: Rectangle {
        radius: 8
        color: button.prominent && button.enabled ? (button.down ? Theme.accentPressed : button.hovered ? Theme.accentHovered : Theme.accent)
             : button.down ? Theme.surfacePressed : button.hovered && button.enabled ? Theme.surfaceHovered : Theme.surface
        border.width: button.prominent && button.enabled ? 0 : 1
        border.color: Theme.separator
        Behavior on color { ColorAnimation { duration: Theme.motion } }

        FocusRing { target: button }
    }
    Tip {
        text: button.tip
        wanted: button.hovered && button.tip !== button.text
    }
}
