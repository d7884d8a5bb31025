import QtQuick
import Quorvane.Views

ScrollingForm {
    id: tab

    required property AdvancedModel model

    contentHeight: column.height + 32
    Component.onCompleted: model.loadModels()

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        y: 16
        width: tab.width - 40
        spacing: 16

        FormSection {
            width: parent.width
            caption: qsTr("Provider")

            PickerRow {
                objectName: "providerRow"
                label: qsTr("Provider")
                choices: tab.model.providerNames
                chosen: tab.model.providerIndex
                onChose: index => tab.model.chooseProvider(index)
            }
            StaticText {
                width: parent.width
                text: qsTr("Auto selects Gemini by default, Grok when NSFW is on.\nPick a specific provider to use it for every generation.")
                color: Theme.secondaryText
                font.pixelSize: Theme.captionSize
                wrapMode: Text.Wrap
            }
        }
        FormSection {
            width: parent.width
            caption: qsTr("4K Upscaling")

            Row {
                visible: tab.model.native4KNote !== ""
                width: parent.width
                spacing: 8

                Symbol {
                    y: 1
                    name: "checkmark.circle"
                    color: Theme.secondaryText
                }
                StaticText {
                    objectName: "nativeNote"
                    width: parent.width - 24
                    text: tab.model.native4KNote
                    color: Theme.secondaryText
                    font.pixelSize: Theme.bodySize
                    wrapMode: Text.Wrap
                }
            }
            PickerRow {
                objectName: "upscaleMethodRow"
                visible: tab.model.native4KNote === ""
                label: qsTr("Upscale Method")
                choices: tab.model.upscaleMethods
                chosen: tab.model.upscaleMethodIndex
                onChose: index => tab.model.chooseUpscaleMethod(index)
            }
            StaticText {
                visible: tab.model.native4KNote === ""
                width: parent.width
                text: qsTr("Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).")
                color: Theme.secondaryText
                font.pixelSize: Theme.captionSize
                wrapMode: Text.Wrap
            }
        }
        FormSection {
            width: parent.width
            caption: qsTr("Models")

            Repeater {
                model: tab.model.models

                PickerRow {
                    required property ModelPicker modelData

                    objectName: modelData.providerId + "ModelRow"
                    label: modelData.label
                    choices: modelData.names
                    chosen: modelData.index
                    onChose: index => modelData.choose(index)
                }
            }
        }
    }
}
