import QtQuick
import Quorvane.Views

/// A label and the choice that belongs to it.
Item {
    id: row

    required property string label
    required property var choices
    required property int chosen
    property alias picker: picker

    signal chose(int index)

    width: parent.width
    height: 32

    Text {
        anchors.left: parent.left
        anchors.right: picker.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        text: row.label
        color: Theme.text
        font.pixelSize: Theme.bodySize
        textFormat: Text.PlainText
    }
    PopUpButton {
        id: picker
        anchors.right: parent.right
        width: 250
        model: row.choices
        currentIndex: row.chosen
        Accessible.name: row.label
        onActivated: index => row.chose(index)
    }
}
