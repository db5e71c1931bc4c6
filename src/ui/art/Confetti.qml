import QtQuick
import Morvane.Art

// A burst of paper while `running`. Without motion it stands with every piece well on its way.
Item {
    id: root

    property bool dark: false
    property bool running: false
    property bool reducedMotion: false
    property real time: running && !reducedMotion ? clock.elapsedTime : stillTime
    readonly property real stillTime: 2.6

    ConfettiScene {
        anchors.fill: parent
        dark: root.dark
        time: root.time
    }

    ArtClock {
        id: clock
        scene: root
        wanted: root.running && !root.reducedMotion
    }
}
