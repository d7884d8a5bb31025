import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// The prompt: grows with its text from 80 to 120 points, then scrolls.
FocusScope {
    id: editor

    required property SidebarModel model

    height: Math.max(80, Math.min(120, area.contentHeight + area.topPadding + area.bottomPadding))

    EditorText {
        document: area.textDocument
        text: editor.model.promptText
        onEdited: text => editor.model.promptText = text
    }
    Binding {
        target: editor.model
        property: "keyboardInEditor"
        value: area.activeFocus && area.Window.active
    }
    Rectangle {
        anchors.fill: parent
        radius: 8
        color: Theme.surface
        border.width: area.activeFocus ? 2 : 1
        border.color: area.activeFocus ? Theme.accent : Theme.separator
    }
    ScrollView {
        id: scroll
        anchors.fill: parent
        anchors.margins: 2
        focus: true
        clip: true
        ScrollBar.vertical: ThinScrollBar {
            parent: scroll
            x: scroll.mirrored ? 0 : scroll.width - width
            height: scroll.availableHeight
        }
        ScrollBar.horizontal.policy: ScrollBar.AlwaysOff

        TextArea {
            id: area

            /// Tab moves on from here; what comes next may have changed since the window opened.
            function leave(forward) { nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason); }

            objectName: "promptEditor"
            focus: true
            leftPadding: 10
            rightPadding: 10
            topPadding: 8
            bottomPadding: 8
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            selectByMouse: true
            color: Theme.text
            selectionColor: Theme.accent
            selectedTextColor: Theme.accentText
            font.pixelSize: Theme.bodySize
            Accessible.name: qsTr("Prompt")
            background: null
            Keys.onTabPressed: leave(true)
            Keys.onBacktabPressed: leave(false)
        }
    }
}
