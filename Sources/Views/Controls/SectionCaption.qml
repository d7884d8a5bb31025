import QtQuick
import Quorvane.Views

PlainText {
    width: parent.width
    color: Theme.secondaryText
    font.pixelSize: Theme.captionSize
    font.weight: Font.Medium
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
