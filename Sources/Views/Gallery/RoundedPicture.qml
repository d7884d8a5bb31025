import QtQuick
import Quorvane.Views

/// A thumbnail, filled and clipped with round corners; a quiet placeholder until it is there, or when it never comes.
Item {
    id: picture

    property alias source: image.source
    property color pageColor: Theme.page
    /// A picture that cannot be read arrives as a single pixel.
    readonly property bool isThere: image.status === Image.Ready && !isBroken
    readonly property bool isBroken: image.status === Image.Ready && image.implicitWidth <= 1 && image.implicitHeight <= 1

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Theme.placeholder
    }
    Symbol {
        anchors.centerIn: parent
        visible: !picture.isThere
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
        opacity: picture.isThere ? 1 : 0
        Behavior on opacity { NumberAnimation { duration: Theme.motion } }
    }
    Rectangle {
        // Covers the corners with the page's colour: cheaper than a mask, and the same with every renderer.
        anchors.fill: parent
        anchors.margins: -5
        visible: picture.isThere
        radius: 15
        color: "transparent"
        border.width: 5
        border.color: picture.pageColor
    }
    SoftShadow {
        z: 0
        visible: picture.isThere
        radius: 10
    }
}
