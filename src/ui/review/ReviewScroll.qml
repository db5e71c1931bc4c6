pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// The groups and their rows. C++ knows where everything stands; only what is near exists.
Flickable {
    id: root

    required property var screen
    readonly property ReviewList list: screen.list
    // The entry that the keyboard goes to.
    property string current
    // More places than any list has.
    readonly property int farthest: 1000000000
    // Rows glide to their new places for a press of the user's alone.
    property bool glides: false

    contentHeight: list.contentHeight
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    activeFocusOnTab: false
    Accessible.role: Accessible.List
    Accessible.name: screen.title

    Keys.onPressed: event => {
        const rowHeight = 42
        const page = Math.max(1, Math.floor(height / rowHeight) - 1)
        const steps = { [Qt.Key_Home]: -farthest, [Qt.Key_End]: farthest,
                        [Qt.Key_PageUp]: -page, [Qt.Key_PageDown]: page }
        const step = steps[event.key]
        if (step === undefined)
            return
        goTo(list.neighbour(currentKey(), step))
        event.accepted = true
    }
    onContentYChanged: list.setViewport(contentY, height)
    onHeightChanged: list.setViewport(contentY, height)
    Component.onCompleted: list.setViewport(contentY, height)

    function currentKey(): string {
        return list.heightOf(current) > 0 ? current : list.first()
    }

    // Brings an entry on view and gives it the keyboard.
    function goTo(key: string) {
        if (key === "")
            return
        current = key
        const top = list.topOf(key)
        const bottom = top + list.heightOf(key)
        if (top < contentY)
            contentY = Math.max(0, top - 8)
        else if (bottom > contentY + height)
            contentY = Math.min(Math.max(0, contentHeight - height), Math.min(top, bottom - height + 8))
        for (let place = 0; place < entries.count; ++place) {
            const entry = entries.itemAt(place)
            if (entry && entry.key === key)
                entry.takeKeyboard()
        }
    }

    Connections {
        target: root.list

        function onShifted(distance) {
            root.contentY += distance
        }
    }

    Timer {
        id: glideEnd

        interval: 400
        onTriggered: root.glides = false
    }

    Repeater {
        model: root.list.cards.length

        delegate: Card {
            id: card

            required property int index
            // None for a card that is about to go.
            readonly property var place: root.list.cards[index] ?? ({ y: 0, height: 0 })

            objectName: "group" + index + "Card"
            parent: root.contentItem
            x: 24
            y: top.value
            width: root.width - 48
            height: extent.value

            Spring {
                id: top

                objectName: card.objectName + "Place"
                target: card.place.y
                enabled: root.glides
                response: 0.2
                dampingFraction: 0.85
            }
            Spring {
                id: extent

                objectName: card.objectName + "Extent"
                target: card.place.height
                enabled: root.glides
                response: 0.2
                dampingFraction: 0.85
            }
        }
    }

    Repeater {
        id: entries

        model: root.list

        delegate: ReviewEntry {
            objectName: key
            parent: root.contentItem
            x: 24
            width: root.width - 48
            isCurrent: key === root.currentKey()
            glides: root.glides
            onToggled: root.screen.press(isHeader ? "groups.state" : "groups.rows.state", entry.id)
            onOpened: {
                root.glides = true
                glideEnd.restart()
                root.screen.press("groups.rows.open", entry.id)
            }
            onRevealed: root.screen.press("groups.rows.panel.reveal", entry.id)
            onMoved: step => root.goTo(root.list.neighbour(key, step))
            onPanelLaidOut: height => root.list.setPanelHeight(key, height)
            onTookKeyboard: root.current = key
        }
    }

    ScrollEdge { scroll: root }
    ScrollMark { scroll: root }
}
