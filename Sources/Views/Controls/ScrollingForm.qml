import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A column of controls that may be higher than its place: what the keyboard comes to comes into sight, and stays there
/// when the place gets smaller.
Flickable {
    id: form

    readonly property Item keyboardAt: Window.activeFocusItem

    function reveal() {
        let parent = keyboardAt;
        while (parent && parent !== contentItem) {
            parent = parent.parent;
        }
        if (parent) {
            const top = keyboardAt.mapToItem(contentItem, 0, 0).y - 12;
            const bottom = top + keyboardAt.height + 24;
            contentY = Math.max(0, Math.min(Math.max(contentY, bottom - height), top));
        }
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    ScrollBar.vertical: ThinScrollBar {}
    onKeyboardAtChanged: reveal()
    onHeightChanged: reveal()
}
