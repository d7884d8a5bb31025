import QtQuick
import Quorvane.Views

/// An album: its first picture, its title and how many there are.
Item {
    id: tile

    required property int index
    required property string albumId
    required property string title
    required property string cover
    required property int count
    required property bool isFavorites
    property bool selected: false

    signal clicked()

    objectName: "album " + albumId
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("%1, %n pictures", "", count).arg(title)
    Accessible.onPressAction: if (enabled) clicked()
    scale: hover.hovered ? 1.02 : 1
    Behavior on scale { NumberAnimation { duration: Theme.motion; easing.type: Easing.OutCubic } }

    HoverHandler {
        id: hover
    }
    MouseArea {
        anchors.fill: parent
        onClicked: tile.clicked()
    }
    RoundedPicture {
        id: picture
        width: parent.width
        height: 150
        source: tile.cover

        PictureRing { visible: tile.selected }
    }
    Symbol {
        id: star
        anchors.left: parent.left
        anchors.verticalCenter: caption.verticalCenter
        visible: tile.isFavorites
        name: "star.fill"
        size: 14
        color: Theme.yellow
    }
    PlainText {
        id: caption
        anchors.left: tile.isFavorites ? star.right : parent.left
        anchors.leftMargin: tile.isFavorites ? 6 : 0
        anchors.right: number.left
        anchors.rightMargin: 8
        anchors.top: picture.bottom
        anchors.topMargin: 8
        text: tile.title
        font.pixelSize: Theme.bodySize
        font.weight: Font.Medium
        elide: Text.ElideRight
        maximumLineCount: 1
    }
    PlainText {
        id: number
        anchors.right: parent.right
        anchors.baseline: caption.baseline
        text: tile.count
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
    }
    // Beside the whole tile, which can be pressed wherever the pointer rests.
    Tip {
        text: tile.title
        wanted: hover.hovered && caption.truncated
    }
}
