import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

/// A pop-up menu, as wide as its widest line.
Menu {
    id: menu

    width: {
        let widest = 160;
        for (let index = 0; index < count; ++index) {
            widest = Math.max(widest, itemAt(index).implicitWidth);
        }
        return widest + leftPadding + rightPadding;
    }
    padding: 4
    margins: 8

    background: Rectangle {
        radius: 10
        color: Theme.surface
        border.color: Theme.separator

        SoftShadow {
            radius: parent.radius
            strength: 1.6
        }
    }
}
