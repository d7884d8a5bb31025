import QtQuick
import Quorvane.Views

Text {
    color: Theme.secondaryText
    font.pixelSize: Theme.captionSize
    font.weight: Font.Medium
    textFormat: Text.PlainText
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
