import QtQuick
import Quorvane.Views

/// Says for a while that something was deleted, and brings it back.
Rectangle {
    id: bar

    property bool offered: false

    signal undone()

    objectName: "undoBar"
    anchors.horizontalCenter: parent.horizontalCenter
    anchors.bottom: parent.bottom
    anchors.bottomMargin: 16
    z: 1
    width: row.width + 22
    height: row.height + 12
    radius: 10
    visible: offered || secondPress.running
    color: Theme.surface
    border.color: Theme.separator
    Accessible.role: Accessible.AlertMessage
    Accessible.name: deleted.text

    SoftShadow {
        radius: bar.radius
        strength: 1.6
    }
    // The second press of a double click is for nothing else, and lands on nothing else.
    Timer {
        id: secondPress
        interval: Application.styleHints.mouseDoubleClickInterval
    }
    // What lies below it is not clicked through it.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
    }
    Row {
        id: row
        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        spacing: 16

        StaticText {
            id: deleted
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Deleted")
        }
        PushButton {
            objectName: "undoButton"
            text: qsTr("Undo")
            symbol: "arrow.uturn.left"
            enabled: bar.offered
            onClicked: {
                if (!secondPress.running) {
                    secondPress.restart();
                    bar.undone();
                }
            }
        }
    }
}
