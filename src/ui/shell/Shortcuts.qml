pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Window

// The shortcuts of the commands.
Item {
    id: root

    required property var shell

    Repeater {
        model: root.shell.menus.length

        delegate: Item {
            id: menu

            required property int index
            readonly property var items: root.shell.menus[index].items

            Repeater {
                model: menu.items.length

                delegate: Item {
                    id: command

                    required property int index
                    readonly property var item: menu.items[index]

                    Shortcut {
                        enabled: command.item.enabled && command.item.key !== null
                        sequence: KeyNames.sequence(command.item.key ?? "")
                        onActivated: root.shell.press("menus.items", command.item.id)
                    }
                }
            }
        }
    }
}
