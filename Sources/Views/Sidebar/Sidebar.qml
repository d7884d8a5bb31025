import QtQuick
import Quorvane.Views

/// Prompt, options, generating, schedule and the last status.
FocusScope {
    id: sidebar

    required property SidebarModel model
    required property MenuModel menu

    readonly property real room: height - (menu.isNeeded ? foot.height : 0)
    /// Whether the rest has to scroll for the status to be seen.
    readonly property bool isFull: form.contentHeight + status.wanted > room

    signal settingsChosen()
    signal quitChosen()

    /// The keyboard is with the prompt.
    function begin() {
        editor.forceActiveFocus();
    }

    // Not the prompt, into which keys meant for something else would be written.
    KeyboardKeeper { place: form }
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
    ScrollingForm {
        id: form
        width: parent.width
        height: Math.min(contentHeight, sidebar.room - status.height)
        contentHeight: column.y + column.height + column.spacing

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
                    id: editor
                    width: parent.width
                    focus: true
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
        }
    }
    // Below what scrolls, so that how it went is seen however much is above it.
    Item {
        id: status

        readonly property real wanted: visible ? line.height + 20 : 0

        anchors.top: form.bottom
        width: parent.width
        height: wanted + line.y
        visible: sidebar.model.status !== "" || sidebar.model.problems !== "" || sidebar.model.isLoading

        Rectangle {
            width: parent.width
            height: 1
            visible: sidebar.isFull
            color: Theme.separator
        }
        StatusLine {
            id: line
            anchors.horizontalCenter: parent.horizontalCenter
            y: sidebar.isFull && status.visible ? 16 : 0
            width: parent.width - 40
            model: sidebar.model
            maximumHeight: sidebar.height * 0.3
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
