import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// The prompt: grows with its text from 80 to 120 points, then scrolls.
Rectangle {
    id: editor

    required property SidebarModel model

    height: Math.max(80, Math.min(120, area.contentHeight + area.topPadding + area.bottomPadding))
    radius: 8
    color: Theme.surface
    border.width: area.activeFocus ? 2 : 1
    border.color: area.activeFocus ? Theme.accent : Theme.separator

    ScrollView {
        id: scroll
        anchors.fill: parent
        anchors.margins: 2
        clip: true
        ScrollBar.vertical: ThinScrollBar {
            parent: scroll
            x: scroll.mirrored ? 0 : scroll.width - width
            height: scroll.availableHeight
        }
        ScrollBar.horizontal.policy: ScrollBar.AlwaysOff

        TextArea {
            id: area
            objectName: "promptEditor"
            leftPadding: 10
            rightPadding: 10
            topPadding: 8
            bottomPadding: 8
            text: editor.model.promptText
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            selectByMouse: true
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            font.pixelSize: Theme.bodySize
            KeyNavigation.priority: KeyNavigation.BeforeItem
            KeyNavigation.tab: nextItemInFocusChain(true)
            KeyNavigation.backtab: nextItemInFocusChain(false)
            Accessible.name: qsTr("Prompt")
            background: null
            onTextChanged: editor.model.promptText = text
        }
    }
}
