import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// What an item's row shows while it is closed.
Pressable {
    id: root

    required property var item
    property bool isCurrent: false
    // How far the mark at the end is turned, 1 for an open row.
    property real turn: 0

    signal toggled()
    signal opened()
    signal moved(int step)

    name: item.label + ", " + item.badge.label + ", " + item.size
    role: Accessible.ListItem
    detail: item.open ? Speech.expanded : ""
    tabStop: isCurrent
    ringCorner: 8
    ringDistance: -2
    onActivated: opened()
    Accessible.selectable: true
    Accessible.selected: item.state === "on"
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)
    // Space ticks the row, Return opens it.
    Keys.onSpacePressed: toggled()

    CheckBox {
        id: check

        objectName: root.objectName + "Check"
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        state: root.item.state
        name: root.item.label
        tabStop: false
        onToggled: root.toggled()
    }
    Words {
        id: label

        objectName: root.objectName + "Label"
        anchors { left: check.right; leftMargin: 12; verticalCenter: parent.verticalCenter }
        width: Math.min(implicitWidth,
                        size.x - check.x - check.width - 12 - 12 - badge.width - 12)
        text: root.item.label
        accessible: false
    }
    SafetyBadge {
        id: badge

        objectName: root.objectName + "Badge"
        anchors { left: label.right; leftMargin: 12; verticalCenter: parent.verticalCenter }
        label: root.item.badge.label
        fill: root.item.badge.fill
        ink: root.item.badge.ink
        accessible: false
    }
    Words {
        id: size

        objectName: root.objectName + "Size"
        anchors { right: mark.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
        width: 70
        text: root.item.size
        color: Theme.inkSoft
        horizontalAlignment: Text.AlignRight
        accessible: false
    }
    Symbol {
        id: mark

        objectName: root.objectName + "Chevron"
        anchors { right: parent.right; rightMargin: 14; verticalCenter: parent.verticalCenter }
        name: "chevron.right"
        size: 10
        color: Theme.inkFaint
        rotation: 90 * root.turn
    }
}
