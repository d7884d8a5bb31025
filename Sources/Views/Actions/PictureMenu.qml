import QtQuick
import Quorvane.Views

/// What can be done with one picture.
MenuPanel {
    id: menu

    required property PictureActions actions
    property string url: ""
    property bool isFavorite: false
    property bool canApply: true
    /// Whether it offers what the picture's tile offers, too; where the picture is large, its buttons do.
    property bool isComplete: false

    signal applied()
    signal favoriteToggled()
    signal deleted()

    /// Opens it for a picture, at a place in item.
    function openFor(path: string, favorite: bool, broken: bool, item: Item, place: point) {
        url = path;
        isFavorite = favorite;
        canApply = !broken;
        popup(item, place.x, place.y);
    }

    objectName: "pictureMenu"

    MenuLine {
        objectName: "menuApply"
        shown: menu.isComplete && menu.canApply
        text: qsTr("Set as Wallpaper")
        onTriggered: menu.applied()
    }
    MenuLine {
        objectName: "menuFavorite"
        shown: menu.isComplete
        text: menu.isFavorite ? qsTr("Unfavorite") : qsTr("Favorite")
        onTriggered: menu.favoriteToggled()
    }
    MenuDivider { shown: menu.isComplete }
    MenuLine {
        objectName: "menuCopy"
        text: qsTr("Copy")
        onTriggered: menu.actions.copy(menu.url)
    }
    MenuLine {
        objectName: "menuShowInFiles"
        text: qsTr("Show in Files")
        onTriggered: menu.actions.showInFiles(menu.url)
    }
    MenuDivider { shown: menu.isComplete }
    MenuLine {
        objectName: "menuDelete"
        shown: menu.isComplete
        destructive: true
        text: qsTr("Delete")
        onTriggered: menu.deleted()
    }
}
