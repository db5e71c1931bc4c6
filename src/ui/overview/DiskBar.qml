pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Theme

// What the disk holds, each slice as wide as its part of the whole. Decoration: the legend beside
// it says the same in words.
RoundedBox {
    id: root

    property var segments: []
    property bool moves: true
    // What is left for the slices between the gaps.
    readonly property real room: width - 2 * segments.length

    implicitHeight: 14
    radius: 4
    color: Theme.trackFill

    Row {
        spacing: 2

        Repeater {
            model: root.segments.length

            delegate: Item {
                id: slice

                required property int index
                readonly property var segment: root.segments[index] ?? null
                property string shown

                // A slice moves to its new width while it stays the same slice.
                onSegmentChanged: {
                    if (!segment)
                        return
                    part.enabled = root.moves && shown === segment.id
                    part.target = segment.fraction
                    shown = segment.id
                }

                objectName: "slice" + index
                width: Math.max(0, root.room * part.value)
                height: root.height
                clip: true

                // The first slice lies in the bar's round corners.
                DiskFill {
                    objectName: slice.objectName + "Fill"
                    width: parent.width + (slice.index === 0 ? 8 : 0)
                    height: parent.height
                    segment: slice.segment
                    radius: slice.index === 0 ? root.radius : 0
                }
                Spring {
                    id: part

                    response: 0.5
                    dampingFraction: 1
                }
            }
        }
    }
}
