import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

ScrollBar {
    id: bar

    policy: ScrollBar.AsNeeded
    padding: 3
    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: Theme.secondaryText
        opacity: bar.size >= 1 ? 0 : bar.pressed ? 0.8 : bar.hovered || bar.active ? 0.55 : 0.25
        Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    }
}
