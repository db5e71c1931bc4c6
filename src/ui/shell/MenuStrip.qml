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

    // The menu on view, or null.
    property CommandMenu openMenu: null

    // Opens the menu so many places on from one, around the end.
    function step(place: int, steps: int) {
        const count = entries.count
        entries.itemAt((place + steps + count) % count).show()
    }

    function go(place: int) {
        const count = entries.count
        entries.itemAt((place + count) % count).forceActiveFocus(Qt.TabFocusReason)
    }

    implicitHeight: 28
    Accessible.role: Accessible.MenuBar

    Row {
        anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }

        Repeater {
            id: entries

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
                onActivated: menu.opened ? menu.close() : show()
                // While one menu is open, the pointer opens the next by coming to it.
                onHoveredChanged: if (hovered && root.openMenu && root.openMenu !== menu) show()
                Keys.onDownPressed: activate()
                Keys.onLeftPressed: root.go(index - 1)
                Keys.onRightPressed: root.go(index + 1)

                function show() {
                    if (root.openMenu)
                        root.openMenu.close()
                    forceActiveFocus(InputMode.keyboard ? Qt.TabFocusReason : Qt.MouseFocusReason)
                    menu.open()
                    // The keyboard begins at the first command, the pointer where it goes.
                    menu.currentIndex = InputMode.keyboard ? 0 : -1
                }

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
                    onWent: steps => root.step(entry.index, steps)
                    onAboutToShow: root.openMenu = menu
                    onAboutToHide: if (root.openMenu === menu) root.openMenu = null
                    // A command takes the keyboard where it leads.
                    onClosed: {
                        if (InputMode.keyboard && !acted)
                            entry.forceActiveFocus(Qt.TabFocusReason)
                    }
                }
            }
        }
    }

    Hairline {
        objectName: "menuBarLine"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }
}
