import QtQuick
import QtQuick.Templates as T
import Quorvane.Views

/// Shows that the keyboard is with the item it surrounds.
Rectangle {
    required property T.Control target

    anchors.fill: parent
    anchors.margins: -3
    visible: target.visualFocus
    radius: 11
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
}
