import QtQuick
import Quorvane.Views

/// How the last operation went, and how far one on this machine is.
Column {
    id: line

    required property SidebarModel model

    spacing: 8

    Row {
        width: parent.width
        spacing: 8

        Symbol {
            objectName: "statusSymbol"
            y: 1
            size: 14
            name: line.model.isError ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
            color: line.model.isError ? Theme.red : Theme.green
        }
        Text {
            objectName: "status"
            width: parent.width - 22
            horizontalAlignment: Text.AlignLeft
            text: line.model.status
            color: Theme.text
            font.pixelSize: Theme.captionSize
            wrapMode: Text.Wrap
            maximumLineCount: 8
            elide: Text.ElideRight
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Text {
        width: parent.width
        leftPadding: 22
        rightPadding: 22
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        visible: text !== ""
        text: line.model.progressText
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
        textFormat: Text.PlainText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
