import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

ToolTip {
    id: tip

    delay: 600
    width: Math.min(implicitWidth, 360)

    contentItem: PlainText {
        objectName: "toolTip"
        text: tip.text
        font.pixelSize: Theme.captionSize
        wrapMode: Text.Wrap
        maximumLineCount: 12
        elide: Text.ElideRight
    }
    background: Rectangle {
        color: Theme.surface
        border.color: Theme.separator
        radius: 6
    }
}
