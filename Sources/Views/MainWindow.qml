import QtQuick
import Quorvane.Views

Window {
    id: window

    required property WallpaperManager manager

    /// The user asks for the settings window.
    signal settingsRequested()

    objectName: "mainWindow"
    title: qsTr("Quorvane")
    width: 960
    height: 640
    minimumWidth: 760
    minimumHeight: 480
    color: Theme.page
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    onActiveChanged: content.refresh()

    ContentView {
        id: content
        anchors.fill: parent
        manager: window.manager
    }
    Shortcut {
        sequences: ["Ctrl+,", StandardKey.Preferences]
        onActivated: window.settingsRequested()
    }
}
