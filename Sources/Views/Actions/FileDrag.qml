import QtQuick
import Quorvane.Views

/// Carries the file of a picture into other programs. Who uses it has a DragHandler and tells it when that is active:
/// the handler belongs to an item around what is clicked, for on top of it it would keep the clicks to itself.
Item {
    id: carrier

    required property PictureActions actions
    required property string url
    /// What is seen under the pointer on the way.
    required property Item shown
    property bool active: false

    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.proposedAction: Qt.CopyAction
    Drag.mimeData: actions.draggedData(url)

    function begin() {
        shown.grabToImage(result => {
            carrier.Drag.imageSource = result.url;
            carrier.Drag.active = carrier.active;
        });
    }

    onActiveChanged: active ? begin() : (Drag.active = false)
}
