import QtQuick
import Quorvane.Views

/// A picture with what can be done to it.
FocusScope {
    id: tile

    required property int index
    required property string url
    required property string thumbnail
    required property string prompt
    required property string timestamp
    required property bool isFavorite
    required property bool isUpscaling
    required property string spoken
    /// How many pictures there are with this one.
    required property int count
    required property PictureActions actions
    property bool selected: false

    /// A picture that cannot be read cannot be set, either.
    readonly property bool isBroken: picture.isBroken
    readonly property bool hovering: hover.hovered
    signal opened()
    signal applied()
    signal deleted()
    signal trashPressed()
    signal favoriteToggled()
    signal menuRequested(point place)

    objectName: "tile " + url
    Accessible.role: Accessible.Button
    //: What is read out of a picture, then its place among the others
    Accessible.name: qsTr("%3, %1 of %2").arg(index + 1).arg(count).arg(spoken)
    Accessible.description: isBroken ? qsTr("This picture cannot be read.") : ""
    Accessible.onPressAction: if (enabled) opened()

    HoverHandler {
        id: hover
    }
    MouseArea {
        anchors.fill: parent
        onClicked: tile.opened()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => tile.menuRequested(eventPoint.position)
    }
    TapHandler {
        id: finger
        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: tile.menuRequested(finger.point.position)
    }
    RoundedPicture {
        id: picture
        width: parent.width
        height: 130
        source: tile.thumbnail

        PictureRing { visible: tile.selected }
        Loader {
            anchors.fill: parent
            active: tile.isUpscaling
            sourceComponent: Rectangle {
                radius: 10
                color: Theme.veil

                Row {
                    anchors.centerIn: parent
                    spacing: 8

                    Spinner { color: Theme.overPicture }
                    PlainText {
                        text: qsTr("Upscaling to 4K...")
                        color: Theme.overPicture
                        font.pixelSize: Theme.captionSize
                    }
                }
            }
        }
    }
    DragHandler {
        id: drag
        objectName: "fileDrag"
        target: null
        // A finger scrolls.
        acceptedDevices: PointerDevice.Mouse
        grabPermissions: PointerHandler.CanTakeOverFromAnything
    }
    FileDrag {
        active: drag.active
        actions: tile.actions
        url: tile.url
        shown: picture
    }
    // Buttons take longer to make than all the rest of the tile, and few tiles ever show them.
    Loader {
        anchors.right: picture.right
        anchors.top: picture.top
        anchors.margins: 8
        active: tile.hovering || tile.isFavorite
        sourceComponent: IconButton {
            objectName: "star"
            size: 28
            focusPolicy: Qt.NoFocus
            symbol: tile.isFavorite ? "star.fill" : "star"
            symbolColor: tile.isFavorite ? Theme.yellow : Theme.overPicture
            tip: tile.isFavorite ? qsTr("Unfavorite") : qsTr("Favorite")
            onClicked: tile.favoriteToggled()
        }
    }
    Loader {
        anchors.left: picture.left
        anchors.right: picture.right
        anchors.bottom: picture.bottom
        anchors.margins: 8
        height: 28
        active: tile.hovering
        sourceComponent: Item {
            CapsuleButton {
                objectName: "apply"
                anchors.left: parent.left
                visible: !tile.isBroken
                focusPolicy: Qt.NoFocus
                height: parent.height
                text: qsTr("Apply")
                onClicked: tile.applied()
            }
            // Far from what is pressed often.
            IconButton {
                objectName: "trash"
                anchors.right: parent.right
                size: 28
                focusPolicy: Qt.NoFocus
                symbol: "trash"
                symbolColor: Theme.glassRed
                tip: qsTr("Delete, together with its 4K partner")
                onClicked: tile.trashPressed()
            }
        }
    }
    PlainText {
        id: caption
        anchors.top: picture.bottom
        anchors.topMargin: 8
        width: parent.width
        text: tile.prompt
        font.pixelSize: Theme.captionSize
        elide: Text.ElideRight
        maximumLineCount: 1

        HoverHandler {
            id: captionHover
        }
    }
    PlainText {
        anchors.top: picture.bottom
        anchors.topMargin: tile.prompt === "" ? 8 : 26
        width: parent.width
        text: tile.timestamp
        color: Theme.secondaryText
        font.pixelSize: Theme.captionSize
        elide: Text.ElideRight
    }
    // Beside the whole tile, so that what it explains stays in sight.
    Tip {
        text: tile.prompt
        wanted: captionHover.hovered
    }
}
