import QtQuick
import Morvane.Art
import Morvane.Theme

// What the selected segment stands on; it springs from one segment to the next, and appears where
// it belongs when there was none before or when the segments themselves find their places.
RoundedBox {
    id: root

    property Item segment: null
    readonly property bool shown: segment !== null
    property Item before: null

    function follow(springs: bool) {
        if (!segment)
            return
        place.enabled = springs
        extent.enabled = springs
        place.target = segment.x
        extent.target = segment.width
    }

    onSegmentChanged: {
        follow(before !== null)
        before = segment
    }

    Component.onCompleted: follow(false)

    x: 2 + place.value
    y: 2
    width: extent.value
    height: 20
    radius: 5
    visible: shown
    color: Theme.segmentThumb
    shadowColor: Theme.shadow(0.12)
    shadowRadius: 0.5

    Connections {
        target: root.segment
        function onXChanged() { root.follow(false) }
        function onWidthChanged() { root.follow(false) }
    }

    Spring {
        id: place

        objectName: root.objectName + "Place"
        response: 0.15
        dampingFraction: 0.85
    }

    Spring {
        id: extent

        objectName: root.objectName + "Extent"
        response: 0.15
        dampingFraction: 0.85
    }
}
