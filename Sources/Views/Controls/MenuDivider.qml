import QtQuick
import QtQuick.Controls.Basic
import Quorvane.Views

MenuSeparator {
    id: divider

    property bool shown: true

    visible: shown
    height: shown ? implicitHeight : 0
    padding: 0
    topPadding: 4
    bottomPadding: 4
    contentItem: Rectangle {
        implicitHeight: 1
        color: Theme.separator
    }
}
