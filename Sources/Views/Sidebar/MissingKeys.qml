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
            Text {
                width: parent.width - 22
                horizontalAlignment: Text.AlignLeft
                text: qsTr("Missing %1 API key").arg(line.modelData)
                color: Theme.orange
                font.pixelSize: Theme.captionSize
                wrapMode: Text.Wrap
                textFormat: Text.PlainText
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
    Text {
        width: parent.width
        leftPadding: 22
        rightPadding: 22
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        text: qsTr("Open Settings (⌘,)")
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
        textFormat: Text.PlainText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
