pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic as Basic
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// The bar of the commands, where the system keeps none outside the window.
Item {
    id: root

    required property var shell

    implicitHeight: 28
    Accessible.role: Accessible.MenuBar

    Row {
        anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }

        Repeater {
            model: root.shell.menus.length

            delegate: Pressable {
                id: entry

                required property int index
                objectName: "menu" + index
                readonly property var items: root.shell.menus[index].items

                implicitWidth: words.implicitWidth + 20
                implicitHeight: 22
                name: root.shell.menus[index].title
                role: Accessible.MenuItem
                // Inside, as there is no room around.
                ringCorner: 5
                ringDistance: -2
                onActivated: menu.opened ? menu.close() : menu.open()
                Keys.onDownPressed: activate()

                Rectangle {
                    anchors.fill: parent
                    radius: 5
                    color: menu.opened || entry.hovered ? Theme.rowHover : Theme.clear
                }
                Words {
                    id: words

                    objectName: entry.objectName + "Words"
                    anchors.centerIn: parent
                    text: entry.name
                    size: 12.5
                    accessible: false
                }
                CommandMenu {
                    id: menu

                    y: entry.height + 2
                    commands: entry.items
                    onChosen: id => root.shell.press("menus.items", id)
                }
            }
        }
    }

    Hairline {
        objectName: "menuBarLine"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }
}
