import QtQuick
import QtQuick.Window
import Quorvane.Views

/// A picture on the whole screen, above everything. Escape and any click end it.
Window {
    id: viewer

    required property ViewerModel model

    signal closed()

    objectName: "viewer"
    title: qsTr("Quorvane")
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    visibility: model.isOpen ? Window.FullScreen : Window.Hidden
    color: Theme.fullScreen
    onVisibleChanged: visible ? requestActivate() : closed()
    onClosing: model.close()

    Image {
        anchors.fill: parent
        visible: picture.status !== Image.Ready
        source: viewer.model.thumbnail
        asynchronous: true
        fillMode: Image.PreserveAspectFit
    }
    Image {
        id: picture
        objectName: "viewerPicture"
        anchors.fill: parent
        source: viewer.model.picture
        sourceSize.width: Math.round(viewer.width * Screen.devicePixelRatio)
        sourceSize.height: Math.round(viewer.height * Screen.devicePixelRatio)
        asynchronous: true
        fillMode: Image.PreserveAspectFit
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        cursorShape: Qt.BlankCursor
        onClicked: viewer.model.close()
    }
    Item {
        focus: true
        Keys.onEscapePressed: viewer.model.close()
    }
}
