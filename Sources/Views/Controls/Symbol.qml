import QtQuick
import Quorvane.Views

/// One of the symbols, in one colour.
Image {
    required property string name
    property color color: Theme.text
    property int size: 16
    /// Whether it points to where the text goes or comes from. It turns by itself then; its name stays that of its look
    /// from left to right.
    readonly property bool isDirected: name === "chevron.left" || name === "chevron.right" || name === "arrow.uturn.left"

    /// A function without types is not compiled to C++, which is the point: Qt 6.4's compiled code makes a text of a color
    /// without holding it, and crashes when the garbage collector comes by at that moment.
    function address(tint) { return "image://symbol/" + name + "/" + tint; }

    source: name === "" ? "" : address(color)
    sourceSize.width: size
    sourceSize.height: size
    width: size
    height: size
    cache: true
    mirror: LayoutMirroring.enabled && isDirected
    Accessible.ignored: true
}
