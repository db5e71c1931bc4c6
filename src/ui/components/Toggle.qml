import QtQuick
import Morvane.Art
import Morvane.Theme

// A switch, drawn as it is told; a press only says what it should become. Its label stands beside
// it on the screen and is its name here.
Pressable {
    id: root

    property string label
    property bool on: false

    signal toggled(bool on)

    implicitWidth: 36
    implicitHeight: 20
    name: label
    role: Accessible.CheckBox
    returnPresses: false
    ringCorner: 10
    onActivated: toggled(!on)

    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.onToggleAction: root.activate()

    Rectangle {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        radius: height / 2
        opacity: root.enabled ? 1 : 0.45
        color: root.on ? Theme.accent : Theme.checkEdge

        Rectangle {
            objectName: root.objectName + "Shade"
            anchors.fill: parent
            radius: height / 2
            visible: root.hovered || root.down
            color: root.down ? Theme.segmentTrack : Theme.rowHover
        }

        RoundedBox {
            objectName: root.objectName + "Knob"
            x: 2 + knob.value * (parent.width - width - 4)
            y: 2
            width: 16
            height: 16
            radius: 8
            color: Theme.knob
            shadowColor: Theme.shadow(0.2)
            shadowRadius: 1
            shadowOffset: 0.5
        }
    }

    Spring {
        id: knob

        objectName: root.objectName + "Motion"
        target: root.on ? 1 : 0
        response: 0.2
        dampingFraction: 0.85
    }
}
