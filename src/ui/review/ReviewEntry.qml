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
        if (content.item)
            content.item.takeKeyboard()
    }

    y: place.value
    height: rowHeight

    Spring {
        id: place

        target: root.rowTop
        enabled: root.glides
        response: 0.2
        dampingFraction: 0.85
    }

    Loader {
        id: content

        anchors.fill: parent
        sourceComponent: root.isHeader ? header : row
    }

    Component {
        id: header

        ReviewGroupHeader {
            group: root.entry
            isCurrent: root.isCurrent
            onToggled: root.toggled()
            onMoved: step => root.moved(step)
            onTookKeyboard: root.tookKeyboard()
        }
    }
    Component {
        id: row

        ReviewRow {
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
