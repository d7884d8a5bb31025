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

    PlainText {
        anchors.left: parent.left
        anchors.right: picker.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideRight
        text: row.label
        font.pixelSize: Theme.bodySize
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
