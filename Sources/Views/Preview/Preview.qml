import QtQuick
import QtQuick.Window
import Quorvane.Views

/// One picture, large, over the gallery.
FocusScope {
    id: preview

    required property PreviewModel model
    required property PictureActions actions

    signal fullScreenRequested()

    /// Whether nothing of the gallery is to be seen behind it.
    readonly property bool coversGallery: model.isOpen && opacity === 1

    /// The keyboard is with the picture, and with none of the buttons yet.
    function begin() {
        stage.forceActiveFocus();
    }

    objectName: "preview"
    visible: opacity > 0
    enabled: model.isOpen
    opacity: model.isOpen ? 1 : 0
    Behavior on opacity { NumberAnimation { duration: Theme.motion } }

    Rectangle {
        anchors.fill: parent
        color: Theme.backdrop
    }
    MouseArea {
        // Nothing of the gallery below is hit or scrolled.
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }

    Item {
        id: stage
        focus: true
        // Not at the beginning of the window, from where the preview would come last.
        KeyNavigation.tab: closeButton
        anchors.fill: parent
        anchors.leftMargin: 64
        anchors.rightMargin: 64
        anchors.topMargin: 60
        anchors.bottomMargin: footer.height + 32

        readonly property int pixelWidth: Math.round(width * Screen.devicePixelRatio)
        readonly property int pixelHeight: Math.round(height * Screen.devicePixelRatio)

        Image {
            // Seen at once, until the picture itself is there.
            anchors.fill: parent
            visible: picture.status !== Image.Ready
            source: preview.model.thumbnail
            asynchronous: true
            fillMode: Image.PreserveAspectFit
        }
        Image {
            id: picture
            objectName: "previewPicture"
            anchors.fill: parent
            source: preview.model.picture
            sourceSize.width: stage.pixelWidth
            sourceSize.height: stage.pixelHeight
            asynchronous: true
            fillMode: Image.PreserveAspectFit
            Accessible.role: Accessible.Graphic
            Accessible.name: preview.model.prompt

            /// A picture that cannot be decoded arrives as a single pixel.
            readonly property bool isEmpty: status === Image.Ready && implicitWidth <= 1 && implicitHeight <= 1

            onIsEmptyChanged: preview.model.cameEmpty = isEmpty

            TapHandler {
                enabled: preview.model.isThere
                acceptedButtons: Qt.RightButton
                onTapped: eventPoint => menu.openFor(preview.model.previewURL, false, false, picture, eventPoint.position)
            }
            DragHandler {
                id: drag
                enabled: preview.model.isThere
                target: null
                acceptedDevices: PointerDevice.Mouse
            }
            FileDrag {
                active: drag.active
                actions: preview.actions
                url: preview.model.previewURL
                shown: picture
            }
        }
        Repeater {
            // Fetched ahead for the next step, and never shown.
            model: preview.model.neighbours

            Image {
                required property string modelData

                visible: false
                source: modelData
                sourceSize.width: stage.pixelWidth
                sourceSize.height: stage.pixelHeight
                asynchronous: true
            }
        }
        Column {
            anchors.centerIn: parent
            width: parent.width
            visible: preview.model.problem !== ""
            spacing: 12

            Symbol {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "exclamationmark.triangle.fill"
                size: 32
                color: Theme.overPictureSecondary
            }
            StaticText {
                objectName: "previewProblem"
                width: parent.width
                text: preview.model.problem
                color: Theme.overPicture
                font.pixelSize: Theme.bodySize
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        UpscalingNotice {
            anchors.centerIn: parent
            model: preview.model
        }
    }

    CapsuleButton {
        id: closeButton
        objectName: "closeButton"
        focusPolicy: Qt.TabFocus
        anchors.left: parent.left
        anchors.leftMargin: 16
        y: 16
        symbol: "xmark.circle.fill"
        text: qsTr("Close")
        onClicked: preview.model.close()
    }
    IconButton {
        id: leftButton
        objectName: "leftButton"
        focusPolicy: Qt.TabFocus
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: stage.verticalCenter
        size: 36
        enabled: preview.model.canGoLeft
        symbol: "chevron.left"
        tip: qsTr("Previous")
        onClicked: preview.model.goLeft()
    }
    IconButton {
        objectName: "rightButton"
        focusPolicy: Qt.TabFocus
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: stage.verticalCenter
        size: 36
        enabled: preview.model.canGoRight
        symbol: "chevron.right"
        tip: qsTr("Next")
        onClicked: preview.model.goRight()
    }

    Column {
        id: footer
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 16
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width - 24
        spacing: 12

        PromptLine {
            objectName: "previewPrompt"
            width: parent.width
            visible: preview.model.canUsePrompt
            text: preview.model.prompt
            onClicked: promptPanel.open()
        }
        Flow {
            id: actions
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitRow, parent.width)
            spacing: 8

            readonly property real implicitRow: Array.from(children).reduce((sum, each) => sum + each.implicitWidth + spacing, 0)

            /// A flow begins every line at its side; these are to be in the middle.
            function centerLines() {
                const places = Array.from(children);
                for (const place of places) {
                    const line = places.filter(other => other.y === place.y);
                    const left = Math.min(...line.map(each => each.x));
                    const right = Math.max(...line.map(each => each.x + each.width));
                    const shift = Math.round((width - right - left) / 2);
                    line.forEach(each => each.x += shift);
                }
            }

            onPositioningComplete: centerLines()

            ActionPlace {
                CapsuleButton {
                    objectName: "setButton"
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.problem === ""
                    text: qsTr("Set as Wallpaper")
                    onClicked: preview.model.setAsWallpaper()
                }
            }
            ActionPlace {
                CapsuleButton {
                    objectName: "favoriteButton"
                    width: parent.width
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.isThere
                    symbol: preview.model.isFavorite ? "star.fill" : "star"
                    symbolColor: preview.model.isFavorite ? Theme.yellow : Theme.overPicture
                    text: preview.model.isFavorite ? qsTr("Unfavorite") : qsTr("Favorite")
                    onClicked: preview.model.toggleFavorite()
                }
                CapsuleButton {
                    // For its width alone: what the other would be with the other text.
                    visible: false
                    symbol: "star"
                    text: preview.model.isFavorite ? qsTr("Favorite") : qsTr("Unfavorite")
                }
            }
            ActionPlace {
                CapsuleButton {
                    objectName: "fullScreenButton"
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.problem === ""
                    symbol: "arrow.up.left.and.arrow.down.right"
                    text: qsTr("Full Screen")
                    onClicked: preview.fullScreenRequested()
                }
            }
            ActionPlace {
                CapsuleButton {
                    objectName: "previewUsePromptButton"
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.canUsePrompt
                    symbol: "arrow.uturn.left"
                    text: qsTr("Use Prompt")
                    onClicked: preview.model.usePrompt()
                }
            }
            // A picture that has an original is not enlarged once more.
            ActionPlace {
                CapsuleButton {
                    objectName: "upscaleButton"
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.canUpscale
                    symbol: "arrow.up.right"
                    text: qsTr("Upscale to 4K")
                    onClicked: preview.model.upscale()
                }
                CapsuleButton {
                    objectName: "originalButton"
                    focusPolicy: Qt.TabFocus
                    visible: preview.model.hasOriginal
                    text: qsTr("Original")
                    onClicked: preview.model.showOriginal()
                }
            }
        }
    }

    PromptPanel {
        id: promptPanel
        parent: stage
        prompt: preview.model.prompt
        onClosed: preview.forceActiveFocus()
    }
    Connections {
        target: preview.model
        function onPreviewURLChanged() { promptPanel.close(); }
    }
    PictureMenu {
        id: menu
        objectName: "previewMenu"
        actions: preview.actions
        onClosed: preview.forceActiveFocus()
    }
    Shortcut {
        enabled: preview.model.isOpen && preview.model.isThere
        sequences: ["Menu", "Shift+F10"]
        onActivated: menu.openFor(preview.model.previewURL, false, false, stage, Qt.point(stage.width / 2 - 80, 60))
    }

    KeyboardKeeper { place: stage }
    KeyStrokes {
        id: strokes
        window: preview.Window.window
    }
    PreviewKeys {
        model: preview.model
        window: preview.Window.window
        mirrored: leftButton.mirrored
    }
    Shortcut {
        enabled: preview.activeFocus && preview.model.isThere
        sequence: "F"
        onActivated: if (!strokes.isRepeat()) preview.model.toggleFavorite()
    }
}
