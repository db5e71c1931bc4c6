import QtQuick
import Morvane.Window
import Morvane.Window

// The home screen: the disk at a glance, and one card for the phase of the scan.
Item {
    id: root

    required property var screen
    // What changed while the screen was away stands there at once when it comes back.
    property bool settled: false

    onVisibleChanged: {
        settled = false
        settling.restart()
    }

    Timer {
        id: settling

        interval: 0
        running: true
        onTriggered: root.settled = root.visible
    }

    Toolbar {
        id: toolbar

        anchors { left: parent.left; right: parent.right; top: parent.top }
        title: root.screen.title
        note: root.screen.lastSwept
    }

    OverviewScroll {
        anchors { left: parent.left; right: parent.right; top: toolbar.bottom; bottom: parent.bottom }
        objectName: "overviewScroll"
        contentHeight: column.y + column.height

        Column {
            id: column

            objectName: "overviewColumn"
            x: 28
            y: 12
            width: parent.width - 56
            bottomPadding: 24
            spacing: 16

            DiskCard {
                objectName: "diskCard"
                width: parent.width
                disk: root.screen.disk
                moves: root.settled
                onAllowed: root.screen.press("disk.note.button")
            }
            PhaseCards {
                objectName: "phaseCards"
                width: parent.width
                screen: root.screen
                moves: root.settled
            }
        }
    }
}
