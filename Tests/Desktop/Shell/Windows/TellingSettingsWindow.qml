import QtQuick

// Tells on standard error what becomes of it.
Window {
    required property QtObject manager

    width: 200
    height: 100
    title: "settings"
    Component.onCompleted: console.info("settings opened", manager ? "with" : "without", "manager")
    Component.onDestruction: console.info("settings closed")
}
