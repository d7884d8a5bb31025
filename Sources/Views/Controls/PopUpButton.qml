import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A choice out of a list.
ComboBox {
    id: picker

    implicitHeight: 32
    leftPadding: mirrored ? 32 : 12
    rightPadding: mirrored ? 12 : 32
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    font.pixelSize: Theme.bodySize
    // Its name is the label beside it, and the bus has no value of a picker.
    Accessible.description: displayText
    Accessible.onPressAction: if (enabled) popup.open()
    Keys.onReturnPressed: event => event.accepted = isReturnDown = !popup.visible
    Keys.onEnterPressed: event => event.accepted = isReturnDown = !popup.visible
    Keys.onReleased: event => event.accepted = openByReturn()
    onVisibleChanged: if (!visible) popup.close()

    /// Return was pressed while the list was closed. An open one takes the key itself, and at its release.
    property bool isReturnDown: false

    function openByReturn() {
        const isOpening = isReturnDown;
        isReturnDown = false;
        if (isOpening) {
            popup.open();
        }
        return isOpening;
    }

    contentItem: PlainText {
        text: picker.displayText
        font: picker.font
        color: picker.enabled ? Theme.text : Theme.secondaryText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: Symbol {
        x: picker.mirrored ? 10 : picker.width - width - 10
        y: (picker.height - height) / 2
        name: "chevron.down"
        size: 14
        color: Theme.secondaryText
    }
    background: Rectangle {
        radius: 8
        color: picker.down ? Theme.surfacePressed : picker.hovered ? Theme.surfaceHovered : Theme.surface
        border.color: Theme.separator

        FocusRing { target: picker }
    }
    delegate: ItemDelegate {
        id: choice

        required property int index
        required property string modelData

        width: ListView.view.width
        height: 32
        leftPadding: 12
        highlighted: picker.highlightedIndex === index
        Accessible.name: modelData
        Accessible.onPressAction: if (enabled) clicked()

        contentItem: PlainText {
            text: choice.modelData
            font.pixelSize: Theme.bodySize
            font.weight: picker.currentIndex === choice.index ? Font.DemiBold : Font.Normal
            color: choice.highlighted ? Theme.accentText : Theme.text
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }
        background: Rectangle {
            radius: 6
            color: choice.highlighted ? Theme.accent : "transparent"
        }
    }
    popup: Popup {
        y: picker.height + 4
        width: picker.width
        height: Math.min(contentItem.implicitHeight + 8, 240)
        padding: 4

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            model: picker.delegateModel
            currentIndex: picker.highlightedIndex
            ScrollBar.vertical: ThinScrollBar {}
        }
        background: Rectangle {
            radius: 10
            color: Theme.surface
            border.color: Theme.separator
        }
    }
}
