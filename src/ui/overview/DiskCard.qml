pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Theme

// The disk at a glance: how much of it is used, by what, and how much is free.
Card {
    id: root

    required property var disk
    property bool moves: true

    signal allowed()

    implicitHeight: rows.implicitHeight + 36

    Column {
        id: rows

        x: 20
        y: 18
        width: root.width - 40
        spacing: 14

        Item {
            width: parent.width
            height: name.implicitHeight

            Words {
                id: name

                objectName: "diskName"
                // A long name gives way, so that the figures are whole.
                width: Math.max(0, Math.min(implicitWidth,
                                            parent.width - used.implicitWidth - 30 - free.width))
                text: root.disk.name
                size: 15
                weight: Font.DemiBold
            }
            Words {
                id: used

                objectName: "diskUsed"
                anchors { left: name.right; leftMargin: 10; baseline: name.baseline }
                width: Math.min(implicitWidth, parent.width - name.width - 20 - free.width)
                text: root.disk.used
                color: Theme.inkSoft
            }
            Figures {
                id: free

                objectName: "diskFree"
                anchors { right: parent.right; baseline: name.baseline }
                text: root.disk.free
                weight: Font.DemiBold
                animated: root.moves
            }
        }

        DiskBar {
            objectName: "diskBar"
            width: parent.width
            segments: root.disk.segments
            moves: root.moves
        }

        DiskLegend {
            objectName: "diskLegend"
            width: parent.width
            name: root.disk.name
            segments: root.disk.segments
            free: root.disk.legendFree
        }

        DiskNote {
            objectName: "diskNote"
            width: parent.width
            visible: root.disk.note !== null
            note: root.disk.note
            onAllowed: root.allowed()
        }
    }
}
