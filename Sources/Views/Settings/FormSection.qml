import QtQuick
import Quorvane.Views

/// A captioned group of a form.
Column {
    id: section

    property alias caption: heading.text
    default property alias rows: content.data

    spacing: 6

    SectionCaption {
        id: heading
        leftPadding: 12
        rightPadding: 12
    }
    Rectangle {
        width: section.width
        height: content.height + 20
        radius: 10
        color: Theme.surface
        border.color: Theme.separator

        Column {
            id: content
            anchors.horizontalCenter: parent.horizontalCenter
            y: 10
            width: parent.width - 24
            spacing: 8
        }
    }
}
