import QtQuick

// Tells on standard error what becomes of it.
Window {
    required property QtObject manager

    width: 200
    height: 100
    title: "main"
    Component.onCompleted: console.info("main opened", manager ? "with" : "without", "manager")
    Component.onDestruction: console.info("main closed")
}
