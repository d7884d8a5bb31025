import QtQuick
import Quorvane.Views

Window {
    id: window

    required property WallpaperManager manager

    /// The user asks for the settings window.
    signal settingsRequested()
    /// The user wants the program to end, windows and all.
    signal quitRequested()

    /// Whether a panel shows the program's icon and menu.
    property bool trayShown: true

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
        trayShown: window.trayShown
        onSettingsRequested: window.settingsRequested()
        onQuitRequested: window.quitRequested()
        LayoutMirroring.enabled: Theme.system.isRightToLeft
        LayoutMirroring.childrenInherit: true
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    Shortcut {
        sequences: ["Ctrl+,", StandardKey.Preferences]
        onActivated: window.settingsRequested()
    }
}
