import QtQuick
import QtQuick.Window

/// Takes the keyboard on when what it is at within the parent is seen no more, so that no key acts on what nobody sees.
Item {
    id: keeper

    /// Where it goes; to what Tab would come to where there is none.
    property Item place: null

    readonly property Item keyboardAt: Window.activeFocusItem

    function isOurs(item: Item): bool {
        let above = item;
        while (above && above !== parent) {
            above = above.parent;
        }
        return above !== null;
    }
    function moveOn() {
        if (keyboardAt && !keyboardAt.visible && isOurs(keyboardAt)) {
            const next = place ?? keyboardAt.nextItemInFocusChain(true);
            next.forceActiveFocus(place ? Qt.OtherFocusReason : Qt.TabFocusReason);
        }
    }

    Timer {
        id: later
        interval: 0
        onTriggered: keeper.moveOn()
    }
    Connections {
        target: keeper.keyboardAt
        // Later, because what hides it may itself know where the keyboard goes.
        function onVisibleChanged() { later.restart(); }
    }
}
