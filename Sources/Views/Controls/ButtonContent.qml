import QtQuick
import Quorvane.Views

/// What a button says, in its middle: a spinner, a symbol, a text, or several of them.
Item {
    id: content

    required property string text
    required property string symbol
    required property bool busy
    required property color color
    required property font font

    implicitWidth: row.implicitWidth
    implicitHeight: 16

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            visible: content.busy
            color: content.color
        }
        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: content.symbol !== ""
            name: content.symbol
            color: content.color
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: content.text !== ""
            text: content.text
            font: content.font
            color: content.color
            textFormat: Text.PlainText
        }
    }
}
