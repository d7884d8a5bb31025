import QtQuick

// Tells on standard error what becomes of it.
Window {
    id: window

    required property QtObject manager

    signal settingsRequested()
    signal quitRequested()

    property bool trayShown: true
    onTrayShownChanged: console.info("tray", trayShown ? "shown" : "missing")

    width: 200
    height: 100
    title: "main"
    Component.onCompleted: console.info("main opened", manager ? "with" : "without", "manager")
    Connections {
        target: window.manager
        function onProblemsChanged() { console.info("problems:", window.manager.problems.join("; ")); }
    }
    Shortcut {
        sequence: "Ctrl+Shift+S"
        onActivated: window.settingsRequested()
    }
    Shortcut {
        sequence: "Ctrl+Shift+X"
        onActivated: window.quitRequested()
    }
    Component.onDestruction: console.info("main closed")
}
