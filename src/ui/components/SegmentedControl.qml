pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Theme

// A choice of one among a few. Without a selection no segment stands out. One stop for Tab: arrows
// go from segment to segment, and Space or Return chooses.
Item {
    id: root

    // What the choice is about, for an assistive client; null where it has no words.
    property var label: null
    property var options: []
    property int selected: -1
    // The segment with the keyboard, or -1.
    property int current: -1
    // The segment that Tab comes to: the one it would leave, else the selected one.
    readonly property int stop: current >= 0 ? current
            : Math.max(0, Math.min(selected, segments.count - 1))

    signal chosen(int index)

    function go(index: int) {
        if (index >= 0 && index < segments.count)
            segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason)
    }

    implicitWidth: row.implicitWidth + 4
    implicitHeight: 24

    Accessible.role: Accessible.Grouping
    Accessible.name: root.label ?? ""

    RoundedBox {
        objectName: root.objectName + "Track"
        anchors.fill: parent
        radius: 7
        color: Theme.segmentTrack
    }

    SegmentThumb {
        objectName: root.objectName + "Thumb"
        // The count is asked first: it tells when the segments are there.
        segment: root.selected >= 0 && root.selected < segments.count
                 ? segments.itemAt(root.selected) : null
        opacity: root.enabled ? 1 : 0.6
    }

    Row {
        id: row

        x: 2
        y: 2

        Repeater {
            id: segments

            // By their number: segments stay the same when the list is told anew.
            model: root.options.length

            Segment {
                required property int index

                objectName: root.objectName + index
                name: root.options[index] ?? ""
                selected: index === root.selected
                tabStop: index === root.stop
                onActivated: root.chosen(index)
                onWent: steps => root.go(index + steps)
                onActiveFocusChanged: {
                    if (activeFocus)
                        root.current = index
                    else if (root.current === index)
                        root.current = -1
                }
            }
        }
    }
}
