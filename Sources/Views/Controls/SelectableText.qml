import QtQuick
import Quorvane.Views

/// A plain text that can be selected and copied, by the pointer and by the keyboard.
TextEdit {
    id: edit

    horizontalAlignment: TextEdit.AlignLeft
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.pixelSize: Theme.captionSize
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    readOnly: true
    selectByMouse: true
    selectByKeyboard: true
    activeFocusOnTab: true
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    // What was selected elsewhere is not selected any more.
    onActiveFocusChanged: if (!activeFocus) deselect()

    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        z: -1
        visible: edit.activeFocus
        radius: 5
        color: "transparent"
        border.width: 2
        border.color: Theme.accent
    }
}
