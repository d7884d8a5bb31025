import QtQuick
import Quorvane.Views

/// Over the picture that is being enlarged: that it is, and how far.
Rectangle {
    id: notice

    required property PreviewModel model

    objectName: "upscalingNotice"
    width: column.width + 40
    height: column.height + 32
    radius: 14
    color: Theme.glass
    visible: model.isUpscaling

    Column {
        id: column
        anchors.centerIn: parent
        spacing: 10

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 10

            Spinner {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.overPicture
            }
            StaticText {
                text: qsTr("Upscaling to 4K...")
                color: Theme.overPicture
                font.pixelSize: Theme.bodySize
                font.weight: Font.Medium
            }
        }
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: notice.model.progressText !== ""
            width: 200
            height: 4
            radius: 2
            color: Theme.glassTrack

            Rectangle {
                anchors.left: parent.left
                width: parent.width * notice.model.progressShare
                height: parent.height
                radius: 2
                color: Theme.overPicture
            }
        }
        StaticText {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: text !== ""
            text: notice.model.progressText
            color: Theme.overPictureSecondary
            font.pixelSize: Theme.captionSize
        }
    }
}
