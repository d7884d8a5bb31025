import QtQuick
import Quorvane.Views

/// Shows that the keyboard is with the item it surrounds.
Rectangle {
    required property Item target

    anchors.fill: parent
    anchors.margins: -3
    visible: target.activeFocus && target.visualFocus !== false
    radius: 11
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
}
