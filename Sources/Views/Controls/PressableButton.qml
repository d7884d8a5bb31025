import QtQuick
import QtQuick.Controls.Basic

/// What the buttons share: the pointer, Space, Return and assistive technology press each of them alike.
Button {
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    Accessible.name: text
    Accessible.onPressAction: if (enabled) clicked()
    Keys.onReturnPressed: event => { if (!event.isAutoRepeat) clicked(); }
    Keys.onEnterPressed: event => { if (!event.isAutoRepeat) clicked(); }
}
