import QtQuick
import Quorvane.Views

/// The menu of the panel's icon, behind a button.
PushButton {
    id: button

    required property MenuModel model

    property bool openedByKey: false

    signal settingsChosen()
    signal quitChosen()

    objectName: "menuButton"
    visible: model.isNeeded
    symbol: "ellipsis"
    text: qsTr("Menu")
    tip: menu.visible ? "" : button.model.stateLine
    onClicked: {
        openedByKey = visualFocus;
        menu.popup(button, 0, -menu.height - 6);
    }

    MenuPanel {
        id: menu
        objectName: "menuBarMenu"
        onClosed: button.forceActiveFocus(button.openedByKey ? Qt.TabFocusReason : Qt.PopupFocusReason)

        MenuLine {
            objectName: "menuState"
            enabled: false
            text: button.model.stateLine
        }
        MenuDivider {}
        MenuLine {
            objectName: "menuGenerate"
            enabled: button.model.canGenerate
            text: button.model.generateText
            onTriggered: button.model.generate()
        }
        MenuLine {
            objectName: "menuAuto"
            checkable: true
            checked: button.model.autoEnabled
            text: button.model.autoText
            onTriggered: button.model.toggleAuto()
        }
        MenuDivider {}
        MenuLine {
            objectName: "menuSettings"
            text: button.model.settingsText
            onTriggered: button.settingsChosen()
        }
        MenuDivider {}
        MenuLine {
            objectName: "menuQuit"
            text: button.model.quitText
            onTriggered: button.quitChosen()
        }
    }
}
