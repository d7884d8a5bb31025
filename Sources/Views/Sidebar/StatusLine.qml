import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// How the last operation went, what was not kept, how far one on this machine is, and a way to end it. Nothing of it is
/// cut: what is longer than its place scrolls, and all of it can be selected and copied.
Item {
    id: line

    required property SidebarModel model
    /// Of the texts, beyond which they scroll.
    required property int maximumHeight

    /// Room around the texts for the frame of the one with the keyboard.
    readonly property int frame: 4

    implicitHeight: scroll.height - 2 * frame + (cancel.visible ? cancel.height + 8 : 0)
    Keys.onEscapePressed: event => {
        event.accepted = line.model.isLoading;
        if (event.accepted) {
            line.model.cancel();
        }
    }

    Symbol {
        id: symbol
        objectName: "statusSymbol"
        anchors.left: parent.left
        y: 1
        visible: line.model.status !== "" || line.model.problems !== ""
        size: 14
        name: runs ? "clock" : wasCancelled ? "xmark.circle.fill" : wentWell ? "checkmark.circle.fill" : "exclamationmark.triangle.fill"
        color: runs || wasCancelled ? Theme.secondaryText : wentWell ? Theme.green : line.model.isError ? Theme.red : Theme.orange

        readonly property bool wentWell: line.model.status !== "" && !line.model.isError
        readonly property bool wasCancelled: wentWell && line.model.wasCancelled
        // What is told while something runs is how far it is, unless it failed.
        readonly property bool runs: wentWell && line.model.isLoading
    }
    Flickable {
        id: scroll
        objectName: "statusPlace"
        anchors.left: symbol.right
        anchors.leftMargin: 8 - line.frame
        anchors.right: parent.right
        anchors.rightMargin: -line.frame
        y: -line.frame
        height: Math.min(contentHeight, line.maximumHeight)
        contentHeight: texts.height + 2 * line.frame
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: true
        ScrollBar.vertical: ThinScrollBar {
            parent: line
            x: Theme.system.isRightToLeft ? -14 : line.width
            y: scroll.y
            height: scroll.height
        }

        Column {
            id: texts
            x: line.frame
            y: line.frame
            width: scroll.width - 2 * line.frame
            spacing: 8

            SelectableText {
                objectName: "status"
                width: parent.width
                visible: text !== ""
                text: line.model.status
            }
            SelectableText {
                objectName: "problems"
                width: parent.width
                visible: text !== ""
                text: line.model.problems
                color: Theme.orange
            }
            StaticText {
                width: parent.width
                wrapMode: Text.Wrap
                visible: text !== ""
                text: line.model.progressText
                color: Theme.secondaryText
                font.pixelSize: Theme.captionSize
            }
        }
    }
    PushButton {
        id: cancel
        objectName: "cancelButton"
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        visible: line.model.isLoading
        text: qsTr("Cancel")
        onClicked: line.model.cancel()
    }
}
