import QtQuick
import Quorvane.Views

/// Tells more of what it lies on, once the pointer rests there. Its panel is made only then, for most are never seen.
Item {
    id: tip

    required property string text
    /// Whether the pointer is at what it explains.
    required property bool wanted

    readonly property bool saysMore: wanted && text !== ""

    anchors.fill: parent
    onVisibleChanged: if (!visible) panel.active = false
    onSaysMoreChanged: panel.active = panel.active || saysMore

    Loader {
        id: panel
        active: false
        sourceComponent: TipPanel {
            parent: tip
            text: tip.text
            wanted: tip.saysMore
            onEnded: panel.active = false
        }
    }
}
