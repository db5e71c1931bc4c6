pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// One item: its name, how safe it is, its size, and what it is once the row is open.
FocusScope {
    id: root

    required property var item
    property bool isCurrent: false
    property bool isFirst: false
    property bool isLast: false
    readonly property var panel: item.panel
    // What the panel told last, while it leaves.
    property var told: null

    signal toggled()
    signal opened()
    signal revealed()
    signal moved(int step)
    signal panelLaidOut(real height)
    signal tookKeyboard()

    function takeKeyboard() {
        line.forceActiveFocus(Qt.TabFocusReason)
    }

    onPanelChanged: if (panel !== null) told = panel

    clip: opening.running

    // The last row lies in the round corners of the card.
    Item {
        width: parent.width
        height: line.height
        clip: true
        visible: line.hovered || root.item.open

        RoundedBox {
            objectName: root.objectName + "Ground"
            readonly property bool isFoot: root.isLast && !root.item.open

            y: isFoot ? -20 : 0
            width: parent.width
            height: parent.height + (isFoot ? 20 : 0)
            radius: isFoot ? 14 : 0
            color: Theme.rowHover
        }
    }
    Hairline {
        objectName: root.objectName + "Line"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        visible: !root.isFirst
    }

    ReviewLine {
        id: line

        objectName: root.objectName + "Row"
        width: parent.width
        height: 42
        item: root.item
        isCurrent: root.isCurrent
        turn: opening.value
        onToggled: root.toggled()
        onOpened: root.opened()
        onMoved: step => root.moved(step)
        onActiveFocusChanged: if (activeFocus) root.tookKeyboard()
    }

    Spring {
        id: opening

        objectName: root.objectName + "Opening"
        target: root.item.open ? 1 : 0
        response: 0.2
        dampingFraction: 0.85
    }

    Repeater {
        model: root.told !== null && (root.panel !== null || opening.value > 0.01) ? 1 : 0

        delegate: ReviewPanel {
            id: shown

            objectName: root.objectName + "Panel"
            y: line.height - (1 - Math.min(1, opening.value)) * 12
            width: root.width
            opacity: Math.max(0, Math.min(1, opening.value))
            panel: root.told
            enabled: root.panel !== null
            rowLabel: root.item.label
            onRevealed: root.revealed()
            // Not while the row is still being made from the list that this changes.
            onImplicitHeightChanged: telling.restart()

            Timer {
                id: telling

                interval: 0
                running: true
                onTriggered: root.panelLaidOut(shown.implicitHeight)
            }
        }
    }
}
