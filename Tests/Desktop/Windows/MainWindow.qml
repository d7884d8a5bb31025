import QtQuick

// Tells on standard error what becomes of it.
Window {
    id: window

    required property QtObject manager

    signal settingsRequested()

    width: 200
    height: 100
    title: "main"
    Component.onCompleted: console.info("main opened", manager ? "with" : "without", "manager")
    Shortcut {
        sequence: "Ctrl+Shift+S"
        onActivated: window.settingsRequested()
    }
    Component.onDestruction: console.info("main closed")
}
