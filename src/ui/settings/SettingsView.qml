import QtQuick
import Morvane.Components
import Morvane.Window

// The settings: when to look, what to leave alone, what went before, and new versions.
Item {
    id: root

    required property var screen

    // Brings what has the keyboard on view.
    function show(item: Item) {
        const top = item.mapToItem(scroll.contentItem, 0, 0).y - 16
        const bottom = top + item.height + 32
        if (top < scroll.contentY)
            scroll.contentY = Math.max(0, top)
        else if (bottom > scroll.contentY + scroll.height)
            scroll.contentY = Math.max(0, Math.min(top, bottom - scroll.height))
    }

    function isInForm(item: Item): bool {
        while (item && item !== form)
            item = item.parent
        return item === form
    }

    function scrollBy(distance: real) {
        const most = Math.max(0, scroll.contentHeight - scroll.height)
        scroll.contentY = Math.max(0, Math.min(most, scroll.contentY + distance))
    }

    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageUp)
            scrollBy(-scroll.height + 40)
        else if (event.key === Qt.Key_PageDown)
            scrollBy(scroll.height - 40)
        else
            return
        event.accepted = true
    }

    Toolbar {
        id: bar

        objectName: "settingsBar"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        title: root.screen.title
    }

    Flickable {
        id: scroll

        objectName: "settingsScroll"
        anchors { left: parent.left; right: parent.right; top: bar.bottom; bottom: parent.bottom }
        contentHeight: form.height + 36
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        Column {
            id: form

            objectName: "settingsForm"
            x: (parent.width - width) / 2
            y: 8
            width: Math.min(828, parent.width - 56)
            spacing: 26

            SweepingSettings {
                width: parent.width
                screen: root.screen
            }
            IgnoreSettings {
                width: parent.width
                screen: root.screen
                scroll: scroll
            }
            HistorySettings {
                width: parent.width
                screen: root.screen
            }
            UpdatesSettings {
                width: parent.width
                screen: root.screen
            }
        }

        ScrollEdge { scroll: scroll }
        ScrollMark { scroll: scroll }
    }

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem
            if (InputMode.keyboard && item && root.isInForm(item))
                root.show(item)
        }
    }
}
