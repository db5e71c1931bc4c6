pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// What each colour of the bar stands for, and how much that is.
FlowLayout {
    id: root

    property string name
    property var segments: []
    required property var free

    spacing: 20
    lineSpacing: 6
    height: implicitHeight
    Accessible.role: Accessible.List
    Accessible.name: root.name

    Repeater {
        model: root.segments.length

        delegate: LegendEntry {
            id: entry

            required property int index
            readonly property var segment: root.segments[index] ?? null

            objectName: "legend" + index
            label: segment?.label ?? ""
            size: segment?.size ?? ""

            DiskFill {
                objectName: entry.objectName + "Fill"
                anchors.fill: parent
                radius: 2
                segment: entry.segment
            }
        }
    }

    LegendEntry {
        objectName: "legendFree"
        label: root.free.label
        size: root.free.size

        RoundedBox {
            objectName: "legendFreeMark"
            anchors.fill: parent
            radius: 2
            color: Theme.trackFill
            edgeColor: Theme.hairlineColor
            edgeWidth: 1
        }
    }
}
