import QtQuick
import Quorvane.Views

/// A round symbol on a picture.
PressableButton {
    id: button

    required property string symbol
    required property string tip
    property color symbolColor: Theme.overPicture
    property int size: 32

    width: size
    height: size
    padding: 0
    horizontalPadding: 0
    opacity: enabled ? 1 : 0.3
    Accessible.name: tip

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: Math.round(button.size / 2)
            color: button.symbolColor
        }
    }
    background: Rectangle {
        radius: width / 2
        color: button.hovered || button.down ? Theme.glassHovered : Theme.glass
        Behavior on color { ColorAnimation { duration: Theme.motion } }

        FocusRing {
            target: button
            radius: width / 2
        }
    }
    Tip {
        text: button.tip
        wanted: button.hovered
    }
}
