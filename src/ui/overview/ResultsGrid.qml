pragma ComponentBehavior: Bound

import QtQuick

// The cards of a scan's results, three beside each other; those of a row are as high as the
// highest. One stop for Tab: arrows go from card to card.
Item {
    id: root

    property string name
    property var cards: []
    required property var leftAlone
    readonly property int columns: 3
    readonly property real gap: 12
    // The card that Tab comes to.
    property int current: 0
    readonly property var heights: {
        const rows = []
        for (let place = 0; place <= entries.count; ++place) {
            const row = Math.floor(place / columns)
            const item = place < entries.count ? entries.itemAt(place) : alone
            rows[row] = Math.max(rows[row] ?? 0, item?.implicitHeight ?? 0)
        }
        return rows
    }

    signal chosen(string id)

    // The edges are whole pixels, and the last card ends where the grid does.
    function leftOf(column: int): real {
        return Math.round(column * (width + gap) / columns)
    }
    function topOf(row: int): real {
        return heights.slice(0, row).reduce((sum, height) => sum + height + gap, 0)
    }
    function go(place: int) {
        if (place >= 0 && place < entries.count)
            (entries.itemAt(place) as ResultsCell).control.forceActiveFocus(Qt.TabFocusReason)
    }

    implicitHeight: topOf(heights.length) - gap
    Accessible.role: Accessible.List
    Accessible.name: root.name

    Repeater {
        id: entries

        model: root.cards.length

        delegate: ResultsCell {
            id: cell

            required property int index

            row: Math.floor(index / root.columns)
            x: root.leftOf(index % root.columns)
            y: root.topOf(row)
            width: root.leftOf(index % root.columns + 1) - root.gap - x
            height: root.heights[row] ?? implicitHeight
            control: card
            implicitHeight: card.implicitHeight
            Accessible.name: card.name

            CategoryCard {
                id: card

                objectName: "category" + cell.index
                anchors.fill: parent
                card: root.cards[cell.index]
                tabStop: cell.index === root.current
                onActivated: root.chosen(card.card.id)
                onActiveFocusChanged: if (activeFocus) root.current = cell.index
                onMoved: (columns, rows) => root.go(cell.index + columns + rows * root.columns)
            }
        }
    }

    ResultsCell {
        id: alone

        readonly property int column: entries.count % root.columns

        row: Math.floor(entries.count / root.columns)
        x: root.leftOf(column)
        y: root.topOf(row)
        width: root.leftOf(column + 1) - root.gap - x
        height: root.heights[row] ?? implicitHeight
        implicitHeight: note.implicitHeight
        Accessible.name: note.card.title

        LeftAloneCard {
            id: note

            objectName: "leftAlone"
            anchors.fill: parent
            card: root.leftAlone
        }
    }
}
