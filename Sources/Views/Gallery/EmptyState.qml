import QtQuick
import Quorvane.Views

/// Before the first picture.
Column {
    spacing: 12

    Symbol {
        anchors.horizontalCenter: parent.horizontalCenter
        name: "photo.on.rectangle.angled"
        size: 64
        color: Theme.secondaryText
        opacity: 0.7
    }
    StaticText {
        anchors.horizontalCenter: parent.horizontalCenter
        topPadding: 4
        text: qsTr("No wallpapers yet")
        font.pixelSize: Theme.titleSize
        font.weight: Font.DemiBold
    }
    StaticText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: qsTr("Generate your first wallpaper\nusing the sidebar controls.")
        color: Theme.secondaryText
        font.pixelSize: Theme.bodySize
        lineHeight: 1.2
        horizontalAlignment: Text.AlignHCenter
    }
}
