import QtQuick
import Quorvane.Views

/// The prompt below the picture, in two lines at most; pressing it shows the whole of it.
PressableButton {
    id: line

    readonly property int most: width - leftPadding - rightPadding

    leftPadding: 14
    rightPadding: 14
    topPadding: 6
    bottomPadding: 6
    focusPolicy: Qt.TabFocus
    Accessible.description: qsTr("Shows the whole prompt")

    // It is made at once because its parts have names, and is shown whenever this is.
    contentItem: Item { // qmllint disable deferred-property-id
        implicitHeight: label.height

        PlainText {
            id: label
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(Math.ceil(implicitWidth), line.most - 24)
            text: line.text
            color: line.hovered || line.visualFocus ? Theme.overPicture : Theme.overPictureSecondary
            font.pixelSize: Theme.bodySize
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Symbol {
            anchors.left: label.right
            anchors.leftMargin: 8
            anchors.bottom: label.bottom
            anchors.bottomMargin: 1
            name: "ellipsis"
            color: label.color
        }
    }
    background: Item {
        Rectangle {
            // As wide as what it says, not as the window.
            anchors.centerIn: parent
            width: Math.min(label.width + 76, parent.width)
            height: parent.height
            radius: 12
            color: line.down || line.hovered ? Theme.glassHovered : "transparent"
            Behavior on color { ColorAnimation { duration: Theme.motion } }

            FocusRing {
                target: line
                radius: 14
            }
        }
    }
}
