import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

ToolTip {
    id: tip

    delay: 600
    width: Math.min(implicitWidth, 360)

    contentItem: Text {
        objectName: "toolTip"
        text: tip.text
        color: Theme.text
        font.pixelSize: Theme.captionSize
        wrapMode: Text.Wrap
        textFormat: Text.PlainText
        maximumLineCount: 12
        elide: Text.ElideRight
    }
    background: Rectangle {
        color: Theme.surface
        border.color: Theme.separator
        radius: 6
    }
}
