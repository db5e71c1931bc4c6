pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Window

// The folders that are left alone. Of a long list only the rows near what is on view exist.
SettingsSection {
    id: root

    required property var screen
    required property Flickable scroll
    readonly property var told: screen.ignoreList
    readonly property int rowHeight: 38
    // Where the rows begin in what is scrolled.
    readonly property real rowsTop: {
        let y = 0
        for (let item = list as Item; item && item !== root.scroll.contentItem; item = item.parent)
            y += item.y
        return y
    }

    objectName: "ignoreList"
    title: told.title
    footer: told.footer

    Item {
        id: list

        objectName: "ignoredFolders"
        width: parent.width
        height: rows.total * root.rowHeight
        visible: rows.total > 0
        Accessible.role: Accessible.List
        Accessible.name: root.told.title

        KeyedList {
            id: rows

            entries: root.told.rows
            first: Math.max(0, Math.floor((root.scroll.contentY - root.rowsTop) / root.rowHeight) - 4)
            most: Math.ceil(root.scroll.height / root.rowHeight) + 9
            kept: [keyboard.stop, keyboard.next]
        }
        ListKeyboard {
            id: keyboard

            rows: rows
            list: list
            onWanted: (key, part) => {
                for (let each = 0; each < shown.count; ++each) {
                    const row = shown.itemAt(each) as IgnoredFolderRow
                    if (row && row.key === key)
                        row.takeKeyboard(part)
                }
            }
            onEmptied: add.forceActiveFocus(Qt.TabFocusReason)
        }
        Repeater {
            id: shown

            model: rows

            delegate: IgnoredFolderRow {
                id: row

                required property string key
                required property var entry
                required property int place

                objectName: "ignored" + place
                y: place * root.rowHeight
                width: list.width
                height: root.rowHeight
                folder: entry
                isFirst: place === 0
                tabStop: key === keyboard.stop
                onShown: root.screen.press("ignoreList.rows.show", key)
                onRemoved: root.screen.press("ignoreList.rows.remove", key)
                onMoved: step => keyboard.go(place + step)
                onMovedToEnd: last => keyboard.go(last ? rows.total - 1 : 0)
                onTookKeyboard: part => keyboard.took(key, part)
            }
        }
    }
    Item {
        width: parent.width
        height: 46

        Hairline {
            anchors { left: parent.left; leftMargin: 16; right: parent.right; top: parent.top }
            visible: rows.total > 0
        }
        CapsuleButton {
            id: add

            objectName: "addFolder"
            anchors { left: parent.left; leftMargin: 16; verticalCenter: parent.verticalCenter }
            button: root.told.add
            onPressed: root.screen.press("ignoreList.add")
        }
    }
}
