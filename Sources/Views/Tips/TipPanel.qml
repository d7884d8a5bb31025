import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// What a Tip shows. A text that is longer than its room can be scrolled, and so stays while the pointer is in it or on
/// the way there. Any key and any click end it: what is done now may be below it.
ToolTip {
    id: panel

    required property bool wanted

    /// It is not shown any more, or will not be after all.
    signal ended()

    readonly property TipText content: contentItem as TipText
    readonly property bool isCut: opened && content.isCut
    readonly property bool isHeld: isCut && content.hovered

    /// Shows it after a moment, keeps it, or lets it go.
    function follow() {
        if (wanted || isHeld) {
            leaving.stop();
            visible = true;
        } else if (isCut) {
            leaving.restart();
        } else {
            end();
        }
    }
    function end() {
        visible = false;
        ended();
    }
    function place() {
        const corner = parent.mapToItem(null, 0, 0);
        const window = parent.Window.window;
        const item = Qt.rect(corner.x, corner.y, parent.width, parent.height);
        const chosen = placement.place(item, Qt.size(implicitWidth, implicitHeight), Qt.size(window.width, window.height), Theme.system.isRightToLeft);
        x = chosen.x - corner.x;
        y = chosen.y - corner.y;
        width = chosen.width;
        height = chosen.height;
    }

    delay: 600
    padding: 8
    Component.onCompleted: follow()
    onWantedChanged: follow()
    onIsHeldChanged: follow()
    onAboutToShow: place()
    onClosed: ended()

    TipPlacement {
        id: placement
    }
    Timer {
        id: leaving
        interval: 400
        onTriggered: panel.end()
    }

    KeyStrokes {
        window: panel.parent.Window.window
        onKeyPressed: ending.restart()
    }
    Timer {
        // Not before the key has been taken: it must not act on what was not seen.
        id: ending
        interval: 0
        onTriggered: panel.end()
    }

    contentItem: TipText {
        text: panel.text

        TapHandler {
            onTapped: panel.end()
        }
    }
    background: Rectangle {
        color: Theme.surface
        border.color: Theme.separator
        radius: 6
    }
}
