import QtQuick
import Quorvane.Views

/// White on a translucent dark capsule, for what lies on pictures.
PressableButton {
    id: button

    property string symbol: ""
    property color symbolColor: Theme.overPicture

    height: 32
    leftPadding: 11
    rightPadding: 11
    topPadding: 0
    bottomPadding: 0
    font.pixelSize: Theme.captionSize
    font.weight: Font.Medium

    contentItem: Item {
        implicitWidth: children[0].implicitWidth
        implicitHeight: children[0].implicitHeight

        Row {
            anchors.centerIn: parent
            spacing: 8

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.symbol !== ""
                name: button.symbol
                size: 14
                color: button.symbolColor
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: button.text
                font: button.font
                color: Theme.overPicture
            }
        }
    }
    background: Rectangle {
        radius: height / 2
        color: button.hovered || button.down ? Theme.glassHovered : Theme.glass
        border.color: Theme.glassEdge
        Behavior on color { ColorAnimation { duration: Theme.motion } }

        FocusRing {
            target: button
            radius: height / 2
        }
    }
}
