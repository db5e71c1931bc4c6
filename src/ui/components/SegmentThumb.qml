import QtQuick
import Morvane.Art
import Morvane.Theme

// What the selected segment stands on; it springs from one segment to the next.
RoundedBox {
    id: root

    property Item segment: null
    property bool shown: false
    property bool faded: false

    x: 2 + place.value
    y: 2
    width: extent.value
    height: 20
    radius: 5
    visible: shown && segment !== null
    opacity: faded ? 0.6 : 1
    color: Theme.segmentThumb
    shadowColor: Theme.shadow(0.12)
    shadowRadius: 0.5

    // Without a segment before, it appears where it belongs.
    Spring {
        id: place
        target: root.segment ? root.segment.x : 0
        response: 0.15
        dampingFraction: 0.85
        enabled: root.visible
    }

    Spring {
        id: extent
        target: root.segment ? root.segment.width : 0
        response: 0.15
        dampingFraction: 0.85
        enabled: root.visible
    }
}
