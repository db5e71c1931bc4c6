import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// What a scan found of one category, and the way to it.
Pressable {
    id: root

    required property var card

    // An arrow asked for the card so many columns and rows on.
    signal moved(int columns, int rows)

    name: card.label
    ringCorner: 14
    implicitHeight: column.implicitHeight + 6 + call.implicitHeight + 28
    Keys.onLeftPressed: moved(-1, 0)
    Keys.onRightPressed: moved(1, 0)
    Keys.onUpPressed: moved(0, -1)
    Keys.onDownPressed: moved(0, 1)

    Card {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
    }
    RoundedBox {
        anchors.fill: parent
        visible: root.down
        radius: 14
        color: Theme.rowHover
    }
    RoundedBox {
        objectName: root.objectName + "Outline"
        anchors.fill: parent
        radius: 14
        color: Theme.clear
        edgeColor: Theme.accent
        edgeWidth: 1
        opacity: root.hovered ? 1 : 0
    }

    Column {
        id: column

        x: 16
        y: 14
        width: parent.width - 32
        spacing: 6

        Item {
            width: parent.width
            height: tile.height

            IconTile {
                id: tile

                objectName: root.objectName + "Tile"
                width: 30
                height: 30
                icon: root.card.symbol
                tint: Theme.accent
                background: Theme.accentTint
            }
            Words {
                objectName: root.objectName + "Label"
                anchors { left: tile.right; leftMargin: 10; right: parent.right
                          verticalCenter: parent.verticalCenter }
                text: root.card.label
                weight: Font.DemiBold
                accessible: false
            }
        }
        Item {
            width: parent.width
            height: 6 + amount.implicitHeight

            Words {
                id: amount

                objectName: root.objectName + "Amount"
                y: 6
                text: root.card.amount
                size: 26
                weight: Font.Bold
                tracking: -0.5
            }
        }
        Words {
            objectName: root.objectName + "Text"
            width: parent.width
            height: Math.max(34, implicitHeight)
            text: root.card.text
            size: 12
            color: Theme.inkSoft
            wraps: true
            balanced: true
        }
    }

    Words {
        id: call

        objectName: root.objectName + "Call"
        anchors { left: parent.left; leftMargin: 16; bottom: parent.bottom; bottomMargin: 14 }
        text: root.card.call
        size: 12.5
        color: Theme.accent
    }
    Symbol {
        objectName: root.objectName + "Chevron"
        anchors { left: call.right; leftMargin: 4; verticalCenter: call.verticalCenter }
        name: "chevron.right"
        size: 9
        weight: "bold"
        color: Theme.accent
    }
}
