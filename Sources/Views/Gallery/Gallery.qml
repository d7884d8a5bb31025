import QtQuick
import QtQuick.Window
import Quorvane.Views

/// The empty state, the albums, or the pictures of one album.
FocusScope {
    id: gallery

    required property GalleryModel model
    required property PictureActions actions

    signal previewRequested(string url)

    /// The keyboard goes where the pointer went, and is there again when the album is closed.
    function openAlbum(tile: AlbumTile) {
        forceActiveFocus();
        albums.currentIndex = tile.index;
        // Who goes somewhere else is not taken back there later.
        returning.awaited = "";
        model.openAlbum(tile.albumId);
    }

    /// Takes the keyboard's place to a tile that something is done with; the file of its picture.
    function goTo(tile: HistoryTile): string {
        images.currentIndex = tile.index;
        return tile.url;
    }

    /// Takes the keyboard's place to a picture that is shown elsewhere, if it is one of the open album's.
    function follow(url: string) {
        const row = model.rowOf(url);
        if (row >= 0) {
            images.currentIndex = row;
            images.positionViewAtIndex(row, GridView.Contain);
        }
    }

    function remove(url: string) {
        images.forceActiveFocus();
        model.remove(url);
    }

    function openPicture(tile: HistoryTile) {
        images.forceActiveFocus();
        previewRequested(goTo(tile));
    }

    /// Does what a key asks for: once for each stroke, and to no picture that is not seen.
    function onTile(action) {
        if (!strokes.isRepeat() && images.showsCurrent()) {
            action(images.currentItem as HistoryTile);
        }
    }

    // The second press of a double click is for the picture that was there, not for the one that has come in its place.
    Timer {
        id: secondPress
        interval: Application.styleHints.mouseDoubleClickInterval
    }
    KeyboardKeeper { place: images.visible ? images : albums }
    KeyStrokes {
        id: strokes
        window: gallery.Window.window
    }

    EmptyState {
        objectName: "emptyState"
        anchors.centerIn: parent
        visible: gallery.model.state === GalleryModel.Empty
    }

    Item {
        id: header
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width - 48
        height: 64
        visible: gallery.model.state === GalleryModel.Albums || gallery.model.state === GalleryModel.Album

        PlainText {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: gallery.model.state === GalleryModel.Albums
            text: qsTr("Albums")
            font.pixelSize: Theme.titleSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PushButton {
            id: back
            objectName: "albumsButton"
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            visible: gallery.model.state === GalleryModel.Album
            symbol: "chevron.left"
            text: qsTr("Albums")
            onClicked: gallery.model.closeAlbum()
        }
        PlainText {
            id: title
            objectName: "albumTitle"
            anchors.left: back.right
            anchors.leftMargin: 16
            anchors.right: usePrompt.visible ? usePrompt.left : parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            visible: back.visible
            text: gallery.model.selectedAlbumTitle
            font.pixelSize: 16
            font.weight: Font.DemiBold
            elide: Text.ElideRight
            maximumLineCount: 1
            Accessible.role: Accessible.Heading
            Accessible.name: text

            HoverHandler {
                id: titleHover
            }
            Tip {
                text: title.text
                wanted: titleHover.hovered && title.truncated
            }
        }
        PushButton {
            id: usePrompt
            objectName: "usePromptButton"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: back.visible && gallery.model.canUsePrompt
            symbol: "arrow.uturn.left"
            text: qsTr("Use Prompt")
            onClicked: gallery.model.usePrompt()
        }
    }

    PictureGrid {
        id: albums
        objectName: "albumGrid"
        anchors.top: header.bottom
        anchors.bottom: undoBar.visible ? undoBar.top : parent.bottom
        anchors.bottomMargin: undoBar.visible ? 8 : 0
        anchors.left: parent.left
        // A tile keeps its gap on the right of it, whichever way the columns go.
        anchors.leftMargin: Theme.system.isRightToLeft ? 4 : 24
        width: parent.width - 28
        gallery: gallery.model
        tileHeight: 182
        visible: gallery.model.state === GalleryModel.Albums
        focus: visible
        model: gallery.model.albumList
        Keys.onReturnPressed: (albums.currentItem as AlbumTile)?.clicked()
        Keys.onEnterPressed: (albums.currentItem as AlbumTile)?.clicked()
        Keys.onSpacePressed: (albums.currentItem as AlbumTile)?.clicked()
        delegate: AlbumTile {
            id: albumTile
            opacity: albums.isInView(albumTile) ? 1 : 0
            width: albums.tileWidth
            height: albums.tileHeight
            selected: GridView.isCurrentItem && albums.activeFocus
            onClicked: gallery.openAlbum(albumTile)
        }
    }
    PictureGrid {
        id: images
        objectName: "imageGrid"
        anchors.top: header.bottom
        anchors.bottom: undoBar.visible ? undoBar.top : parent.bottom
        anchors.bottomMargin: undoBar.visible ? 8 : 0
        anchors.left: parent.left
        // A tile keeps its gap on the right of it, whichever way the columns go.
        anchors.leftMargin: Theme.system.isRightToLeft ? 4 : 24
        width: parent.width - 28
        gallery: gallery.model
        tileHeight: 176
        visible: gallery.model.state === GalleryModel.Album
        focus: visible
        model: gallery.model.imageList
        // What is under the pointer stays there when a star changes the order.
        HoverHandler {
            onHoveredChanged: gallery.model.keepsOrder = hovered
        }
        Keys.onReturnPressed: gallery.onTile(tile => tile.opened())
        Keys.onEnterPressed: gallery.onTile(tile => tile.opened())
        Keys.onSpacePressed: gallery.onTile(tile => tile.opened())
        Keys.onDeletePressed: gallery.onTile(tile => tile.deleted())
        Keys.onEscapePressed: gallery.model.closeAlbum()
        delegate: HistoryTile {
            id: imageTile
            opacity: images.isInView(imageTile) ? 1 : 0
            count: images.count
            actions: gallery.actions
            width: images.tileWidth
            height: images.tileHeight
            selected: GridView.isCurrentItem && images.activeFocus
            onOpened: gallery.openPicture(imageTile)
            onApplied: gallery.model.apply(gallery.goTo(imageTile))
            onDeleted: gallery.remove(gallery.goTo(imageTile))
            onTrashPressed: {
                if (!secondPress.running) {
                    secondPress.restart();
                    deleted();
                }
            }
            onFavoriteToggled: gallery.model.toggleFavorite(gallery.goTo(imageTile))
            onMenuRequested: place => menu.openFor(gallery.goTo(imageTile), isFavorite, isBroken, imageTile, place)
        }
    }
    PictureMenu {
        id: menu
        actions: gallery.actions
        isComplete: true
        onApplied: gallery.model.apply(url)
        onFavoriteToggled: gallery.model.toggleFavorite(url)
        onDeleted: gallery.remove(url)
        onClosed: images.forceActiveFocus()
    }
    Shortcut {
        enabled: images.activeFocus && images.currentItem !== null
        sequences: ["Menu", "Shift+F10"]
        onActivated: gallery.onTile(tile => tile.menuRequested(Qt.point(24, 60)))
    }
    Shortcut {
        enabled: images.activeFocus && images.currentItem !== null
        sequence: "F"
        onActivated: gallery.onTile(tile => tile.favoriteToggled())
    }
    // Below the tiles, where it covers none.
    UndoBar {
        id: undoBar
        offered: gallery.model.canUndo
        onUndone: {
            (images.visible ? images : albums).forceActiveFocus();
            gallery.model.undo();
        }
    }
    Shortcut {
        enabled: gallery.model.canUndo
        sequences: [StandardKey.Undo]
        autoRepeat: false
        onActivated: gallery.model.undo()
    }
    Connections {
        id: returning

        /// The picture that was brought back, until its album shows it.
        property string awaited: ""

        target: gallery.model
        function onBroughtBack(url: string) { awaited = url; }
        function onImagesChanged() {
            if (gallery.model.rowOf(awaited) >= 0) {
                gallery.follow(awaited);
                awaited = "";
            }
        }
    }
}
