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
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Item {
        id: content
        anchors.fill: parent
        LayoutMirroring.enabled: Theme.system.isRightToLeft
        LayoutMirroring.childrenInherit: true
    }
    Rectangle {
        id: bar
        parent: content
        width: parent.width
        height: 64
        color: Theme.sidebar

        Row {
            anchors.centerIn: parent
            spacing: 8

            SettingsTabButton {
                objectName: "apiKeysTab"
                symbol: "key.fill"
                text: qsTr("API Keys")
                checked: window.tab === 0
                onClicked: window.tab = 0
            }
            SettingsTabButton {
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
    APIKeysModel {
        id: keysModel
        manager: window.manager
    }
    AdvancedModel {
        id: advancedModel
        manager: window.manager
    }
    // A tab is made when it appears, and then reads what is stored.
    Loader {
        parent: content
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        active: window.visible
        sourceComponent: window.tab === 0 ? keysTab : advancedTab
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
