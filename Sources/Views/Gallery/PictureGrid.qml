import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Quorvane.Views

/// Tiles in columns of at least 220 points, 20 apart, that share the width.
GridView {
    id: grid

    required property int tileHeight
    required property GalleryModel gallery

    readonly property real tileWidth: cellWidth - 20

    /// Whether at least half of the tile that the keyboard is at is seen. Where it is not, it is brought into sight.
    function showsCurrent(): bool {
        const middle = currentItem === null ? -1 : currentItem.y + tileHeight / 2 - contentY;
        const isSeen = middle >= 0 && middle <= height;
        if (!isSeen) {
            positionViewAtIndex(currentIndex, GridView.Contain);
        }
        return isSeen && !isCovered(currentItem);
    }
    /// Whether anything of the tile is seen. The grid makes more of them, and assistive technology is to tell of no others.
    function isInView(tile: Item): bool {
        return tile.y + tile.height > contentY && tile.y < contentY + height;
    }
    /// Whether something floats over the middle of the tile: a tip, which any key ends.
    function isCovered(tile: Item): bool {
        const floating = T.Overlay.overlay;
        const middle = tile.mapToItem(floating, tile.width / 2, tile.height / 2);
        return floating.childAt(middle.x, middle.y) !== null;
    }

    // The last column keeps its gap, and the grid gives it back by being wider than what it shows.
    cellWidth: Math.floor(width / gallery.columns(width - 20))
    cellHeight: tileHeight + 20
    clip: true
    keyNavigationEnabled: true
    currentIndex: 0
    boundsBehavior: Flickable.StopAtBounds
    // Every tile is made for its picture: one that Qt had kept for later use would be told of as if it were seen, and keeps
    // what it showed when the grid's model goes and comes back.
    reuseItems: false
    cacheBuffer: 400
    topMargin: 4
    bottomMargin: 12
    activeFocusOnTab: true
    // Where there are tiles, the keyboard is at one.
    onCountChanged: currentIndex = Math.max(currentIndex, count > 0 ? 0 : -1)
    // Beside the tiles, where the grid's place in its parent leaves room for it, whichever side that is.
    ScrollBar.vertical: ThinScrollBar {
        parent: grid.parent
        visible: grid.visible
        anchors.top: grid.top
        anchors.bottom: grid.bottom
        anchors.right: parent.right
        anchors.rightMargin: 4
    }
}
