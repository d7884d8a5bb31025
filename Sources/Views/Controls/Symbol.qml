import QtQuick
import Quorvane.Views

/// One of the symbols, in one colour.
Image {
    required property string name
    property color color: Theme.text
    property int size: 16

    source: name === "" ? "" : "image://symbol/" + name + "/" + color
    sourceSize.width: size
    sourceSize.height: size
    width: size
    height: size
    cache: true
    Accessible.ignored: true
}
