import QtQuick
import Quorvane.Views

/// The shadow that the rectangle around it casts: a picture cut into nine, which every renderer draws at no cost.
BorderImage {
    id: shadow

    /// Of the rectangle's corners, in points.
    required property int radius
    /// 1 for what lies on the page; more for what floats above it.
    property real strength: 1

    readonly property int reach: 14

    z: -1
    anchors.fill: parent
    anchors.margins: -reach
    border.left: reach + radius
    border.right: reach + radius
    border.top: reach + radius
    border.bottom: reach + radius
    source: "image://shadow/" + radius + "/" + reach + "/" + Math.round(Theme.shadow * strength * 100)
    Accessible.ignored: true
}
