pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Window

// The bar of the commands, where the system keeps none outside the window.
Item {
    id: root

    required property var shell

    // The entry at a place, counted on around the ends.
    function at(place: int): MenuEntry {
        return entries.itemAt((place + entries.count) % entries.count) as MenuEntry
    }

    // Opens one menu in place of the one that is open.
    function show(entry: MenuEntry) {
        for (let place = 0; place < entries.count; ++place) {
            if (at(place) !== entry)
                at(place).close()
        }
        entry.open()
    }

    function isOpen(): bool {
        for (let place = 0; place < entries.count; ++place) {
            if (at(place).opened)
                return true
        }
        return false
    }

    implicitHeight: 28
    Accessible.role: Accessible.MenuBar

    Row {
        anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }

        Repeater {
            id: entries

            model: root.shell.menus.length

            delegate: MenuEntry {
                id: entry

                required property int index

                objectName: "menu" + index
                content: root.shell.menus[index]
                onActivated: opened ? close() : root.show(entry)
                // While one menu is open, the pointer opens the next by coming to it.
                onHoveredChanged: if (hovered && !opened && root.isOpen()) root.show(entry)
                onChosen: id => root.shell.press("menus.items", id)
                onWent: steps => root.at(index + steps).forceActiveFocus(Qt.TabFocusReason)
                onWentOpen: steps => root.show(root.at(index + steps))
            }
        }
    }

    Hairline {
        objectName: "menuBarLine"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
    }
}
