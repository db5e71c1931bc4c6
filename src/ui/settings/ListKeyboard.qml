import QtQuick
import Morvane.Window

// Which row of a list the keyboard is on, or would come to, and where it goes when that row does.
// A row has parts: 0 is the row itself, the others are its buttons in their order.
Item {
    id: root

    required property KeyedList rows
    // What holds the rows.
    required property Item list
    property string current
    property int part: 0
    property int place: 0
    property bool wasOnList: false
    // The row that the keyboard is about to come to.
    property string next
    // The row that Tab comes to: the one it would leave, else the first.
    readonly property string stop: rows.total > 0 && rows.placeOf(current) >= 0 ? current
                                                                             : rows.keyAt(0)

    // A row is to take the keyboard.
    signal wanted(string key, int part)
    // The last row went, and the keyboard was on it.
    signal emptied()

    function took(key: string, part: int) {
        root.current = key
        root.part = part
        root.place = root.rows.placeOf(key)
    }

    function go(to: int) {
        const key = root.rows.keyAt(Math.max(0, Math.min(root.rows.total - 1, to)))
        if (key === "")
            return
        root.next = key
        root.wanted(key, root.part)
        root.next = ""
    }

    function isOnList(): bool {
        let item = root.list.Window.activeFocusItem
        while (item && item !== root.list)
            item = item.parent
        return item === root.list
    }

    Connections {
        target: root.rows

        function onEntriesAboutToChange() {
            root.wasOnList = root.isOnList()
        }
        function onEntriesChanged() {
            const now = root.rows.placeOf(root.current)
            if (now >= 0)
                root.place = now
            else if (root.wasOnList && root.rows.total > 0)
                root.go(root.place)
            else if (root.wasOnList)
                root.emptied()
        }
    }
}
