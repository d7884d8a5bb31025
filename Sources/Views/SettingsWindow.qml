import QtQuick
import Quorvane.Views

Window {
    id: window

    required property WallpaperManager manager
    property int tab: 0

    objectName: "settingsWindow"
    title: qsTr("Settings")
    width: 500
    height: 440
    minimumWidth: 500
    maximumWidth: 500
    minimumHeight: 440
    maximumHeight: 440
    color: Theme.page
    onActiveChanged: keysModel.refresh()
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    FocusScope {
        id: content
        anchors.fill: parent
        focus: true
        LayoutMirroring.enabled: Theme.system.isRightToLeft
        LayoutMirroring.childrenInherit: true
        // Not a Shortcut, which would be there before an open list of choices is.
        Keys.onEscapePressed: window.close()

        KeyboardKeeper { place: window.tab === 0 ? keysButton : advancedButton }

        Rectangle {
            id: bar
            width: parent.width
            height: 64
            color: Theme.sidebar

            Row {
                anchors.centerIn: parent
                spacing: 8

                SettingsTabButton {
                    id: keysButton
                    objectName: "apiKeysTab"
                    focus: true
                    symbol: "key.fill"
                    text: qsTr("API Keys")
                    checked: window.tab === 0
                    onClicked: window.tab = 0
                }
                SettingsTabButton {
                    id: advancedButton
                    objectName: "advancedTab"
                    symbol: "gearshape"
                    text: qsTr("Advanced")
                    checked: window.tab === 1
                    onClicked: window.tab = 1
                }
            }
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: 1
                color: Theme.separator
            }
        }
        // A tab is made when it appears, and then reads what is stored.
        Loader {
            anchors.top: bar.bottom
            anchors.bottom: undoBar.visible ? undoBar.top : parent.bottom
            anchors.bottomMargin: undoBar.visible ? 8 : 0
            width: parent.width
            active: window.visible
            sourceComponent: window.tab === 0 ? keysTab : advancedTab
        }
        UndoBar {
            id: undoBar
            offered: keysModel.canUndo
            onUndone: keysModel.undo()
        }
    }
    Shortcut {
        enabled: keysModel.canUndo
        sequences: [StandardKey.Undo]
        autoRepeat: false
        onActivated: keysModel.undo()
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    APIKeysModel {
        id: keysModel
        manager: window.manager
    }
    AdvancedModel {
        id: advancedModel
        manager: window.manager
    }
    Component {
        id: keysTab

        APIKeysTab { model: keysModel }
    }
    Component {
        id: advancedTab

        AdvancedTab { model: advancedModel }
    }
}
