pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Theme

// A titled group of rows.
Column {
    id: root

    required property var section

    signal chosen(string id)
    signal moved(Item row, int step)

    function rowItems() {
        const items = []
        for (let each = 0; each < rows.count; ++each)
            items.push(rows.itemAt(each))
        return items
    }

    spacing: 2

    Item {
        objectName: root.objectName + "Head"
        width: parent.width
        height: title.implicitHeight + 16

        Words {
            id: title

            objectName: root.objectName + "Title"
            x: 10
            y: 12
            width: parent.width - 20
            text: root.section.title
            size: 11
            weight: Font.DemiBold
            color: Theme.inkFaint
            Accessible.role: Accessible.ListItem
        }
    }

    Repeater {
        id: rows

        model: root.section.rows.length

        delegate: SidebarRow {
            id: row

            required property int index

            objectName: root.objectName + "Row" + index
            width: root.width
            row: root.section.rows[index]
            onChosen: root.chosen(row.row.id)
            onMoved: step => root.moved(row, step)
        }
    }
}
