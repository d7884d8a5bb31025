import QtQuick
import Quorvane.Views

Text {
    width: parent.width
    horizontalAlignment: Text.AlignLeft
    color: Theme.secondaryText
    font.pixelSize: Theme.captionSize
    font.weight: Font.Medium
    textFormat: Text.PlainText
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
