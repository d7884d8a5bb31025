import QtQuick
import QtQuick.Window
import Quorvane.Views

/// The sidebar, the gallery beside it, and the preview over the gallery.
Item {
    id: view

    required property WallpaperManager manager
    property bool trayShown: true

    signal settingsRequested()
    signal quitRequested()

    /// A prompt was chosen among the pictures, and is in the editor now.
    signal promptChosen()

    function refresh() {
        sidebarModel.refresh();
    }
    function usePrompt(prompt: string) {
        sidebarModel.promptText = prompt;
        promptChosen();
    }

    SidebarModel {
        id: sidebarModel
        manager: view.manager
    }
    GalleryModel {
        id: galleryModel
        manager: view.manager
        onPromptChosen: prompt => view.usePrompt(prompt)
    }
    PreviewModel {
        id: previewModel
        manager: view.manager
        list: galleryModel.images
        onPromptChosen: prompt => view.usePrompt(prompt)
    }
    PictureActions {
        id: pictureActions
    }
    MenuModel {
        id: menuModel
        manager: view.manager
        trayShown: view.trayShown
        canGenerate: sidebarModel.canGenerate
    }
    ViewerModel {
        id: viewerModel
        onFailed: previewModel.refresh()
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: sidebarModel.generate()
    }

    // Made after the models have their manager, which bindings of one component cannot promise each other.
    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: Item {
            Sidebar {
                id: sidebar
                anchors.left: parent.left
                width: 280
                height: parent.height
                focus: true
                model: sidebarModel
                menu: menuModel
                onSettingsChosen: view.settingsRequested()
                onQuitChosen: view.quitRequested()
            }
            Gallery {
                id: gallery
                anchors.left: sidebar.right
                anchors.right: parent.right
                height: parent.height
                enabled: !previewModel.isOpen
                // What nobody sees is not read out, either.
                visible: !preview.coversGallery
                model: galleryModel
                actions: pictureActions
                onPreviewRequested: url => previewModel.previewURL = url
            }
            Preview {
                id: preview
                anchors.fill: gallery
                model: previewModel
                actions: pictureActions
                onFullScreenRequested: viewerModel.show(previewModel.previewURL)
            }
            Connections {
                target: previewModel
                function onIsOpenChanged() { previewModel.isOpen ? preview.begin() : gallery.forceActiveFocus(); }
                function onPreviewURLChanged() { gallery.follow(previewModel.previewURL); }
            }
            Connections {
                target: view
                // Where it can be changed, or taken back. Later, because a preview gives the keyboard back when it closes.
                function onPromptChosen() { later.restart(); }
            }
            Timer {
                id: later
                interval: 0
                onTriggered: sidebar.begin()
            }
            Connections {
                target: galleryModel
                function onImagesChanged() { gallery.follow(previewModel.previewURL); }
            }
        }
    }
    FullScreenViewer {
        model: viewerModel
        screen: view.Window.window?.screen ?? null
        // A window manager on X11 fills the screen on which it finds the window, and Qt itself goes by the middle of it.
        x: view.Screen.virtualX
        y: view.Screen.virtualY
        width: view.Screen.width
        height: view.Screen.height
        onClosed: view.Window.window.requestActivate()
    }
}
