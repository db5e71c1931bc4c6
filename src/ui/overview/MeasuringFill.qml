import QtQuick
import Morvane.Art
import Morvane.Theme

// A block that pulses while what it stands for is still being measured.
RoundedBox {
    id: root

    property color tint: Theme.diskOther
    readonly property bool onScreen: visible && Window.window !== null
            && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized
    readonly property bool pulses: onScreen && !Theme.reducedMotion

    color: tint
    opacity: 0.8
    onPulsesChanged: if (!pulses) opacity = 0.8

    SequentialAnimation {
        running: root.pulses
        loops: Animation.Infinite

        NumberAnimation {
            target: root
            property: "opacity"
            from: 0.8
            to: 0.35
            duration: 900
            easing.type: Easing.InOutSine
        }
        NumberAnimation {
            target: root
            property: "opacity"
            from: 0.35
            to: 0.8
            duration: 900
            easing.type: Easing.InOutSine
        }
    }
}
