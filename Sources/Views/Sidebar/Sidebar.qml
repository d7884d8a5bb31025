import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// Prompt, options, generating, schedule and the last status.
FocusScope {
    id: sidebar

    required property SidebarModel model
    required property MenuModel menu

    signal settingsChosen()
    signal quitChosen()

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar

        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: Theme.separator
        }
    }
    Flickable {
        anchors.fill: parent
        anchors.bottomMargin: foot.visible ? foot.height : 0
        contentHeight: column.height + 40
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        ScrollBar.vertical: ThinScrollBar {}

        Column {
            id: column
            anchors.horizontalCenter: parent.horizontalCenter
            y: 20
            width: sidebar.width - 40
            spacing: 24

            Column {
                width: parent.width
                spacing: 8

                SectionCaption { text: qsTr("Prompt") }
                PromptEditor {
                    width: parent.width
                    model: sidebar.model
                }
            }
            Column {
                width: parent.width
                spacing: 10

                SectionCaption { text: qsTr("Options") }
                Toggle {
                    objectName: "fourKToggle"
                    width: parent.width
                    text: qsTr("4K resolution")
                    checked: sidebar.model.fourKEnabled
                    onToggled: sidebar.model.fourKEnabled = checked
                }
                Toggle {
                    objectName: "nsfwToggle"
                    width: parent.width
                    visible: sidebar.model.nsfwShown
                    text: qsTr("NSFW")
                    checked: sidebar.model.nsfwEnabled
                    onToggled: sidebar.model.nsfwEnabled = checked
                }
                Row {
                    width: parent.width
                    spacing: 8

                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        name: "cpu"
                        color: Theme.secondaryText
                    }
                    StaticText {
                        objectName: "providerName"
                        text: sidebar.model.providerName
                        color: Theme.secondaryText
                        font.pixelSize: Theme.captionSize
                    }
                    StaticText {
                        objectName: "upscaleHint"
                        visible: text !== ""
                        text: sidebar.model.upscaleHint
                        color: Theme.secondaryText
                        font.pixelSize: Theme.captionSize
                    }
                }
            }
            Column {
                width: parent.width
                spacing: 12

                MissingKeys {
                    width: parent.width
                    visible: sidebar.model.missingKeys.length > 0
                    names: sidebar.model.missingKeys
                }
                PushButton {
                    objectName: "generateButton"
                    width: parent.width
                    height: 40
                    prominent: true
                    busy: sidebar.model.isLoading
                    enabled: sidebar.model.canGenerate
                    text: busy ? qsTr("Generating...") : qsTr("Generate & Set Wallpaper")
                    tip: qsTr("Ctrl+Enter")
                    Accessible.name: text
                    onClicked: sidebar.model.generate()
                }
            }
            Schedule {
                width: parent.width
                model: sidebar.model
            }
            StatusLine {
                width: parent.width
                visible: sidebar.model.status !== ""
                model: sidebar.model
            }
        }
    }
    Item {
        id: foot
        anchors.bottom: parent.bottom
        width: parent.width
        height: 56
        visible: sidebar.menu.isNeeded

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.separator
        }
        MenuBarButton {
            anchors.centerIn: parent
            width: parent.width - 40
            model: sidebar.menu
            onSettingsChosen: sidebar.settingsChosen()
            onQuitChosen: sidebar.quitChosen()
        }
    }
}
