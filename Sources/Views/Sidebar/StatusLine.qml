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
        StaticText {
            objectName: "status"
            width: parent.width - 22
            text: line.model.status
            font.pixelSize: Theme.captionSize
            wrapMode: Text.Wrap
            maximumLineCount: 8
            elide: Text.ElideRight
        }
    }
    StaticText {
        width: parent.width
        leftPadding: 22
        rightPadding: 22
        wrapMode: Text.Wrap
        visible: text !== ""
        text: line.model.progressText
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
    }
}
