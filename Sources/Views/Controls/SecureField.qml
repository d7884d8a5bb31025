import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A field whose text is neither shown nor told.
TextField {
    id: field

    implicitHeight: 32
    leftPadding: 12
    rightPadding: 12
    horizontalAlignment: TextInput.AlignLeft
    echoMode: TextInput.Password
    inputMethodHints: Qt.ImhHiddenText | Qt.ImhSensitiveData | Qt.ImhNoPredictiveText
    selectByMouse: true
    color: Theme.text
    placeholderTextColor: Theme.secondaryText
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.pixelSize: Theme.bodySize
    Accessible.name: placeholderText
    Accessible.passwordEdit: true

    background: Rectangle {
        radius: 8
        color: Theme.page
        border.color: field.activeFocus ? Theme.accent : Theme.separator
        border.width: field.activeFocus ? 2 : 1
    }
}
