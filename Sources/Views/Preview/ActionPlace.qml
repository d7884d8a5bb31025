import QtQuick

/// Where an action of the preview stands, as wide as the widest that ever does: nothing beside it moves when it goes.
Item {
    implicitWidth: Math.max(...Array.from(children).map(each => each.implicitWidth))
    width: implicitWidth
    height: Math.max(...Array.from(children).map(each => each.height))
}
