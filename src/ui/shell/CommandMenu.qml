pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic as Basic
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// A menu of commands, each with its shortcut.
Basic.Menu {
    id: root

    property var commands: []

    // Whether it was left with a command.
    property bool acted: false

    signal chosen(string id)
    // An arrow asked for the menu so many places on.
    signal went(int steps)

    // A press on what opened it is that one's.
    closePolicy: Basic.Popup.CloseOnEscape | Basic.Popup.CloseOnPressOutsideParent
    onAboutToShow: acted = false
    padding: 5
    implicitWidth: 240
    background: RoundedBox {
        radius: 8
        color: Theme.card
        edgeColor: Theme.cardEdge
        edgeWidth: 1
        shadowColor: Theme.shadow(0.25)
        shadowRadius: 12
        shadowOffset: 4
    }

    Shortcut {
        sequence: "Left"
        enabled: root.opened
        onActivated: root.went(-1)
    }
    Shortcut {
        sequence: "Right"
        enabled: root.opened
        onActivated: root.went(1)
    }
    Instantiator {
        model: root.commands.length
        onObjectAdded: (index, object) => root.insertItem(index, object)
        onObjectRemoved: (index, object) => root.removeItem(object)

        delegate: Basic.MenuItem {
            id: item

            required property int index
            readonly property var command: root.commands[index]

            implicitHeight: 26
            leftPadding: 10
            rightPadding: 10
            enabled: command.enabled
            text: command.label
            onTriggered: {
                root.acted = true
                root.chosen(command.id)
            }
            Accessible.name: command.label
            background: Rectangle {
                radius: 5
                color: item.highlighted && item.enabled ? Theme.accent : Theme.clear
            }
            contentItem: CommandWords {
                command: item.command
                usable: item.enabled
                marked: item.highlighted
            }
        }
    }
}
