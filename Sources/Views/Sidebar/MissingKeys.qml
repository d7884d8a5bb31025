import QtQuick
import Quorvane.Views

/// Which keys a generation would need, and where they go.
Column {
    id: banner

    required property var names

    objectName: "missingKeys"
    spacing: 4

    Repeater {
        model: banner.names

        Row {
            id: line

            required property string modelData

            width: banner.width
            spacing: 8

            Symbol {
                name: "exclamationmark.triangle.fill"
                size: 14
                y: 1
                color: Theme.orange
            }
            StaticText {
                width: parent.width - 22
                text: qsTr("Missing %1 API key").arg(line.modelData)
                color: Theme.orange
                font.pixelSize: Theme.captionSize
                wrapMode: Text.Wrap
            }
        }
    }
    StaticText {
        width: parent.width
        leftPadding: 22
        rightPadding: 22
        wrapMode: Text.Wrap
        text: qsTr("Open Settings (⌘,)")
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
    }
}
