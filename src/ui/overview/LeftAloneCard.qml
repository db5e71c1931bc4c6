import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// A statement, and no control.
RoundedBox {
    id: root

    required property var card

    implicitHeight: column.implicitHeight + 28
    radius: 14
    color: Theme.warm

    Column {
        id: column

        x: 16
        y: 14
        width: parent.width - 32
        spacing: 6

        Symbol {
            objectName: "leftAloneSymbol"
            name: root.card.symbol
            size: 18
            color: Theme.warmInk
        }
        Words {
            objectName: "leftAloneTitle"
            width: parent.width
            text: root.card.title
            weight: Font.DemiBold
            color: Theme.warmInk
            wraps: true
            accessible: false
        }
        Words {
            objectName: "leftAloneText"
            width: parent.width
            text: root.card.text
            size: 12
            color: Theme.warmInk
            wraps: true
            balanced: true
        }
    }
}
