import QtQuick
import Quorvane.Views

ScrollingForm {
    id: tab

    required property APIKeysModel model

    contentHeight: column.height + 32
    Component.onCompleted: model.loadAllKeys()

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        y: 16
        width: tab.width - 40
        spacing: 16

        Repeater {
            model: tab.model.rows

            FormSection {
                id: section

                required property APIKeyRow modelData

                width: column.width
                caption: modelData.section

                Row {
                    width: parent.width
                    spacing: 8

                    SecureField {
                        id: field
                        objectName: section.modelData.providerId + "Field"
                        width: parent.width - save.width - 8 - (trash.visible ? trash.width + 8 : 0)
                        placeholderText: section.modelData.placeholder
                        text: section.modelData.key
                        onTextChanged: section.modelData.key = text
                        onAccepted: section.modelData.submit()
                        // What was typed goes first.
                        Keys.onPressed: event => {
                            event.accepted = !canUndo && tab.model.canUndo && event.matches(StandardKey.Undo);
                            if (event.accepted) {
                                tab.model.undo();
                            }
                        }
                    }
                    PushButton {
                        id: save
                        objectName: section.modelData.providerId + "Save"
                        height: 32
                        text: section.modelData.saveLabel
                        enabled: section.modelData.canSave
                        onClicked: section.modelData.save()
                    }
                    PushButton {
                        id: trash
                        objectName: section.modelData.providerId + "Trash"
                        height: 32
                        visible: section.modelData.saved
                        destructive: true
                        symbol: "trash"
                        tip: qsTr("Remove this key")
                        onClicked: {
                            // Where the next key of this service goes, and of no other.
                            field.forceActiveFocus();
                            section.modelData.remove();
                        }
                    }
                }
                Row {
                    width: parent.width
                    visible: section.modelData.saved
                    spacing: 6

                    Symbol {
                        anchors.verticalCenter: parent.verticalCenter
                        name: "checkmark.circle.fill"
                        size: 14
                        color: Theme.green
                    }
                    StaticText {
                        objectName: section.modelData.providerId + "Saved"
                        text: qsTr("Saved in Keychain")
                        color: Theme.green
                        font.pixelSize: Theme.captionSize
                    }
                }
                StaticText {
                    objectName: section.modelData.providerId + "Stored"
                    width: parent.width
                    // What Return in the field does, which changes nothing else of the row.
                    visible: section.modelData.key !== "" && !section.modelData.saved && !section.modelData.unsaved
                    text: qsTr("This key is stored.")
                    color: Theme.green
                    font.pixelSize: Theme.captionSize
                    wrapMode: Text.Wrap
                }
                StaticText {
                    objectName: section.modelData.providerId + "Unsaved"
                    width: parent.width
                    visible: section.modelData.unsaved
                    text: qsTr("What is in the field is not saved yet.")
                    color: Theme.orange
                    font.pixelSize: Theme.captionSize
                    wrapMode: Text.Wrap
                }
                StaticText {
                    objectName: section.modelData.providerId + "Problem"
                    width: parent.width
                    visible: text !== ""
                    text: section.modelData.problem
                    color: Theme.red
                    font.pixelSize: Theme.captionSize
                    wrapMode: Text.Wrap
                }
                StaticText {
                    width: parent.width
                    text: section.modelData.help
                    color: Theme.secondaryText
                    font.pixelSize: Theme.captionSize
                    wrapMode: Text.Wrap
                }
            }
        }
    }
}
