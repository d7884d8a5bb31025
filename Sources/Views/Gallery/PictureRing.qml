import QtQuick
import Quorvane.Views

/// Shows that the keyboard is at a picture, whatever its colours are: one of two lines stands out from it.
Rectangle {
    // Inside, because the grid cuts off what lies beside its tiles.
    anchors.fill: parent
    radius: 10
    color: "transparent"
    border.width: 3
    border.color: Theme.accent

    Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: 7
        color: "transparent"
        border.width: 2
        border.color: Theme.overPicture
    }
}
