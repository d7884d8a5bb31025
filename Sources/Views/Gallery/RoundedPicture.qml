import QtQuick
import Quorvane.Views

/// A thumbnail, filled and clipped with round corners; a quiet placeholder until it is there, or when it never comes.
Item {
    id: picture

    property alias source: image.source
    property color pageColor: Theme.page

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Theme.placeholder
    }
    Symbol {
        anchors.centerIn: parent
        visible: image.status !== Image.Ready
        name: "photo.on.rectangle.angled"
        size: 28
        color: Theme.secondaryText
        opacity: 0.45
    }
    Image {
        id: image
        anchors.fill: parent
        asynchronous: true
        fillMode: Image.PreserveAspectCrop
        opacity: status === Image.Ready ? 1 : 0
        Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    }
    Rectangle {
        // Covers the corners with the page's colour: cheaper than a mask, and the same with every renderer.
        anchors.fill: parent
        anchors.margins: -5
        visible: image.status === Image.Ready
        radius: 15
        color: "transparent"
        border.width: 5
        border.color: picture.pageColor
    }
}
