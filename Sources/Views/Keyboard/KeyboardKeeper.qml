import QtQuick
import QtQuick.Window

/// Takes the keyboard on when what it is at within the parent is seen no more, so that no key acts on what nobody sees,
/// nor on something else than what was meant.
Item {
    id: keeper

    /// Where it goes: to what no key does harm at.
    required property Item place

    readonly property Item keyboardAt: Window.activeFocusItem

    /// Whether an item is another, or lies in it.
    function isIn(item: Item, other: Item): bool {
        let above = item;
        while (above && above !== other) {
            above = above.parent;
        }
        return above !== null;
    }
    /// What had the keyboard has gone, or is no more. Qt may have given the keyboard to what lies around it, where no key
    /// does anything.
    function moveOn(gone: Item) {
        const isLost = !keyboardAt || !keyboardAt.visible || (gone && isIn(gone, keyboardAt));
        if (!gone?.visible && isLost) {
            place.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Timer {
        id: later

        property Item gone: null

        interval: 0
        onTriggered: keeper.moveOn(gone)
    }
    Connections {
        target: keeper.keyboardAt
        // Later, because what hides it may itself know where the keyboard goes.
        function onVisibleChanged() {
            if (keeper.isIn(keeper.keyboardAt, keeper.parent)) {
                later.gone = keeper.keyboardAt;
                later.restart();
            }
        }
    }
}
