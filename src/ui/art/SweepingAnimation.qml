import QtQuick
import Morvane.Art

// The pan at work while `running`. Without motion it stands with crumbs on their way.
Item {
    id: root

    property bool dark: false
    property bool running: false
    property bool reducedMotion: false
    property real time: running && !reducedMotion ? clock.elapsedTime : stillTime
    readonly property real stillTime: 2.1

    implicitWidth: scene.implicitWidth
    implicitHeight: scene.implicitHeight

    SweepingScene {
        id: scene
        anchors.centerIn: parent
        width: scene.implicitWidth
        height: scene.implicitHeight
        dark: root.dark
        time: root.time
    }

    ArtClock {
        id: clock
        scene: root
        wanted: root.running && !root.reducedMotion
    }
}
