import QtQuick
import Quorvane.Views

/// One of the symbols, in one colour.
Image {
    required property string name
    property color color: Theme.text
    property int size: 16
    /// Whether it points to where the text goes or comes from.
    readonly property bool isDirected: name === "chevron.left" || name === "chevron.right" || name === "arrow.uturn.left"

    source: name === "" ? "" : "image://symbol/" + name + "/" + color
    sourceSize.width: size
    sourceSize.height: size
    width: size
    height: size
    cache: true
    mirror: LayoutMirroring.enabled && isDirected
    Accessible.ignored: true
}
