import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A text, and a switch at the far end of the row.
Switch {
    id: toggle

    padding: 0
    implicitHeight: 24
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    font.pixelSize: Theme.bodySize
    Accessible.name: text
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) flip(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) flip(); }

    /// As a click does.
    function flip() {
        if (enabled) {
            toggle.toggle();
            toggled();
        }
    }

    indicator: Rectangle {
        x: toggle.mirrored ? 0 : toggle.width - width
        anchors.verticalCenter: parent.verticalCenter
        width: 38
        height: 22
        radius: 11
        color: toggle.checked ? Theme.accent : Theme.switchTrack
        Behavior on color { ColorAnimation { duration: Theme.motion } }

        Rectangle {
            x: toggle.checked !== toggle.mirrored ? parent.width - width - 2 : 2
            y: 2
            width: 18
            height: 18
            radius: 9
            color: Theme.switchKnob
            Behavior on x { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }
        }
        FocusRing {
            target: toggle
            radius: 14
        }
    }
    contentItem: PlainText {
        leftPadding: toggle.mirrored ? 48 : 0
        rightPadding: toggle.mirrored ? 0 : 48
        elide: Text.ElideRight
        text: toggle.text
        font: toggle.font
        verticalAlignment: Text.AlignVCenter
    }
}
