pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Theme
import Morvane.Window

// The last sweeps, newest first.
SettingsSection {
    id: root

    required property var screen
    readonly property var told: screen.history

    objectName: "history"
    title: told.title
    footer: told.footer

    SettingsLine {
        objectName: "historyMessage"
        width: parent.width
        isFirst: true
        visible: root.told.message !== null
        label: root.told.message ?? ""
        ink: Theme.inkFaint
        spoken: true
    }
    Column {
        id: list

        objectName: "sweeps"
        width: parent.width
        visible: rows.total > 0
        Accessible.role: Accessible.List
        Accessible.name: root.told.title

        KeyedList {
            id: rows

            entries: root.told.rows
        }
        ListKeyboard {
            id: keyboard

            rows: rows
            list: list
            onWanted: (key, part) => (shown.itemAt(rows.placeOf(key)) as HistoryRow)?.takeKeyboard(part)
        }
        Repeater {
            id: shown

            model: rows

            delegate: HistoryRow {
                required property string key
                required property var entry
                required property int place

                objectName: "sweep" + place
                width: list.width
                sweep: entry
                isFirst: place === 0
                tabStop: key === keyboard.stop
                onRestored: root.screen.press("history.rows.restore", key)
                onMoved: step => keyboard.go(place + step)
                onMovedToEnd: last => keyboard.go(last ? rows.total - 1 : 0)
                onTookKeyboard: part => keyboard.took(key, part)
            }
        }
    }
}
