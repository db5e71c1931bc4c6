pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// The brand, the screens to go to, and how full the disk is.
Rectangle {
    id: root

    required property var screen

    color: Theme.well

    function rowItems() {
        const rows = []
        for (let section = 0; section < sections.count; ++section)
            rows.push(...sections.itemAt(section).rowItems())
        rows.push(settings)
        return rows
    }

    // Brings the keyboard to the row of the screen on view.
    function takeKeyboard() {
        const selected = rowItems().find(each => each.row.selected)
        if (selected)
            selected.forceActiveFocus(Qt.OtherFocusReason)
    }

    // Moves the keyboard `step` rows on from the row that has it.
    function moveFrom(row: Item, step: int) {
        const rows = rowItems()
        const place = rows.indexOf(row) + step
        if (place >= 0 && place < rows.length)
            rows[place].forceActiveFocus(Qt.TabFocusReason)
    }

    Item {
        id: head

        objectName: "sidebarHead"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: 34

        AppLogo {
            id: mark

            objectName: "brandMark"
            anchors { left: parent.left; leftMargin: 18; verticalCenter: parent.verticalCenter }
            size: 22
        }
        Words {
            objectName: "brandName"
            anchors { left: mark.right; leftMargin: 8; verticalCenter: parent.verticalCenter }
            text: root.screen.brand
            size: 13.5
            weight: Font.Bold
        }
    }

    Item {
        anchors { left: parent.left; right: parent.right; top: head.bottom; bottom: parent.bottom }
        Accessible.role: Accessible.List
        Accessible.name: root.screen.brand

        Flickable {
            id: scroll

            objectName: "sidebarScroll"
            anchors { left: parent.left; right: parent.right; top: parent.top; bottom: foot.top }
            contentHeight: list.height
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            Accessible.ignored: true

            Column {
                id: list

                objectName: "sidebarList"
                x: 10
                width: parent.width - 20
                spacing: 2

                Repeater {
                    id: sections

                    model: root.screen.sections.length

                    delegate: SidebarSection {
                        required property int index

                        objectName: "section" + index
                        width: list.width
                        section: root.screen.sections[index]
                        onChosen: id => root.screen.press("sections.rows", id)
                        onMoved: (row, step) => root.moveFrom(row, step)
                    }
                }
            }

            ScrollMark { scroll: scroll }
        }

        Column {
            id: foot

            objectName: "sidebarFoot"
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 10 }
            spacing: 10

            DiskSummary {
                objectName: "diskSummary"
                width: parent.width
                disk: root.screen.disk
            }
            SidebarRow {
                id: settings

                objectName: "rowSettings"
                width: parent.width
                row: root.screen.settings
                onChosen: root.screen.press("settings")
                onMoved: step => root.moveFrom(settings, step)
            }
        }
    }
}
