pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Theme

// One entry of the list: the header of a group, or a row.
Item {
    id: root

    required property string key
    required property bool isHeader
    required property bool isFirst
    required property bool isLast
    required property real rowTop
    required property real rowHeight
    required property var entry
    property bool isCurrent: false
    property bool glides: false

    signal toggled()
    signal opened()
    signal revealed()
    signal moved(int step)
    signal panelLaidOut(real height)
    signal tookKeyboard()

    function takeKeyboard() {
        const header = headers.itemAt(0) as ReviewGroupHeader
        if (header)
            header.takeKeyboard()
        const row = rows.itemAt(0) as ReviewRow
        if (row)
            row.takeKeyboard()
    }

    y: place.value
    height: extent.value

    Spring {
        id: place

        objectName: root.objectName + "Place"
        target: root.rowTop
        enabled: root.glides
        response: 0.2
        dampingFraction: 0.85
    }
    Spring {
        id: extent

        objectName: root.objectName + "Extent"
        target: root.rowHeight
        enabled: root.glides
        response: 0.2
        dampingFraction: 0.85
    }

    // A loader would not see this row.
    Repeater {
        id: headers

        model: root.isHeader ? 1 : 0

        delegate: ReviewGroupHeader {
            objectName: root.objectName
            width: root.width
            height: root.height
            group: root.entry
            isCurrent: root.isCurrent
            onToggled: root.toggled()
            onMoved: step => root.moved(step)
            onTookKeyboard: root.tookKeyboard()
        }
    }
    Repeater {
        id: rows

        model: root.isHeader ? 0 : 1

        delegate: ReviewRow {
            objectName: root.objectName
            width: root.width
            height: root.height
            item: root.entry
            isCurrent: root.isCurrent
            isFirst: root.isFirst
            isLast: root.isLast
            onToggled: root.toggled()
            onOpened: root.opened()
            onRevealed: root.revealed()
            onMoved: step => root.moved(step)
            onPanelLaidOut: height => root.panelLaidOut(height)
            onTookKeyboard: root.tookKeyboard()
        }
    }
}
