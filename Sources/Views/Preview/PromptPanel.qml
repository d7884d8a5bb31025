import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// The whole prompt of the picture, to be read, selected and copied.
Popup {
    id: panel

    required property string prompt

    /// What is selected, or else the whole prompt.
    function copy() {
        if (area.selectedText === "") {
            area.selectAll();
        }
        area.copy();
    }

    objectName: "promptPanel"
    x: Math.round((parent.width - width) / 2)
    y: parent.height - height
    width: Math.min(parent.width, 560)
    height: Math.min(parent.height, area.contentHeight + copyButton.height + 52)
    padding: 14
    focus: true
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutside
    onOpened: area.forceActiveFocus()

    background: Rectangle {
        radius: 14
        color: Theme.surface
        border.color: Theme.separator

        SoftShadow {
            radius: parent.radius
            strength: 1.6
        }
    }
    // It is made at once because its parts have names, and is shown whenever this is.
    contentItem: Item { // qmllint disable deferred-property-id
        ScrollView {
            id: scroll
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: copyButton.top
            anchors.bottomMargin: 12
            clip: true
            ScrollBar.vertical: ThinScrollBar {
                parent: scroll
                x: scroll.mirrored ? 0 : scroll.width - width
                height: scroll.availableHeight
            }
            ScrollBar.horizontal.policy: ScrollBar.AlwaysOff

            TextArea {
                id: area
                objectName: "wholePrompt"
                leftPadding: 0
                rightPadding: 12
                topPadding: 0
                bottomPadding: 0
                text: panel.prompt
                readOnly: true
                wrapMode: TextEdit.Wrap
                textFormat: TextEdit.PlainText
                selectByMouse: true
                selectByKeyboard: true
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentText
                font.pixelSize: Theme.bodySize
                KeyNavigation.priority: KeyNavigation.BeforeItem
                KeyNavigation.tab: copyButton
                KeyNavigation.backtab: copyButton
                Accessible.name: qsTr("Prompt")
                background: null
            }
        }
        PushButton {
            id: copyButton
            objectName: "copyPromptButton"
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            text: qsTr("Copy")
            KeyNavigation.tab: area
            KeyNavigation.backtab: area
            onClicked: panel.copy()
        }
    }
}
