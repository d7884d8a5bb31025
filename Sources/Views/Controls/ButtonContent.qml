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

    readonly property int beside: (busy ? 24 : 0) + (symbol !== "" ? 24 : 0)

    implicitWidth: text === "" ? row.implicitWidth : beside + Math.ceil(label.implicitWidth)
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
        PlainText {
            id: label
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), content.width - content.beside)
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 11
            elide: Text.ElideRight
            visible: content.text !== ""
            text: content.text
            font: content.font
            color: content.color
        }
    }
}
