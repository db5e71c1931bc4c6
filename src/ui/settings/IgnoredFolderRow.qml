import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// A folder that is left alone.
SettingsRow {
    id: root

    property var folder: ({ label: "", symbol: "", tooltip: "", exists: false, show: null,
                            remove: null })

    signal shown()
    signal removed()

    name: folder.label === folder.tooltip ? folder.label : folder.label + ", " + folder.tooltip
    buttons: [show, remove]
    onErased: removed()

    Symbol {
        id: symbol

        objectName: root.objectName + "Symbol"
        anchors { left: parent.left; leftMargin: 16; verticalCenter: parent.verticalCenter }
        name: root.folder.symbol
        size: 12
        color: root.folder.exists ? Theme.accent : Theme.inkFaint
    }
    Words {
        id: path

        objectName: root.objectName + "Path"
        anchors { left: parent.left; leftMargin: 38; verticalCenter: parent.verticalCenter }
        width: Math.min(implicitWidth, (show.visible ? show.x : remove.x) - x - 16)
        text: root.folder.label
        size: 12
        color: root.folder.exists ? Theme.ink : Theme.inkFaint
        elide: Text.ElideMiddle
        hasToolTip: false
        accessible: false

        ToolTipArea {
            anchors.fill: parent
            text: root.folder.tooltip
            keyboardShown: InputMode.keyboard && root.activeFocus
        }
    }
    TextButton {
        id: show

        objectName: root.objectName + "Show"
        anchors { right: remove.left; rightMargin: 18; baseline: remove.baseline }
        visible: root.folder.show !== null
        button: root.folder.show
        name: (button?.label ?? "") + ", " + root.folder.label
        tabStop: false
        onPressed: root.shown()
        onActiveFocusChanged: root.followButton(show)
    }
    TextButton {
        id: remove

        objectName: root.objectName + "Remove"
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        button: root.folder.remove
        name: (button?.label ?? "") + ", " + root.folder.label
        tabStop: false
        onPressed: root.removed()
        onActiveFocusChanged: root.followButton(remove)
    }
}
