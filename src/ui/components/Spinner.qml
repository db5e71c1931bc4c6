pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Theme

// Something is going on. It turns while it is on view, and stands where motion is reduced.
Item {
    id: root

    property real size: 16
    property color tint: Theme.inkSoft

    implicitWidth: size
    implicitHeight: size

    Repeater {
        model: 8

        Item {
            id: spoke
            required property int index
            anchors.fill: parent
            rotation: index * 45
            opacity: 0.2 + 0.8 * ((index - turn.step + 8) % 8) / 7

            Rectangle {
                x: (parent.width - width) / 2
                width: root.size * 0.12
                height: root.size * 0.28
                radius: width / 2
                color: root.tint
                antialiasing: true
            }
        }
    }

    Timer {
        id: turn
        property int step: 1
        interval: 100
        repeat: true
        running: root.visible && !Theme.reducedMotion
        onTriggered: step = (step + 7) % 8
    }
}
