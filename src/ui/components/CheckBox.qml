import QtQuick
import Morvane.Art
import Morvane.Theme

// A box of three states, drawn as it is told; a press only says so.
Pressable {
    id: root

    // "on", "off" or "mixed".
    property string state: "off"

    signal toggled()

    implicitWidth: 16
    implicitHeight: 16
    role: Accessible.CheckBox
    returnPresses: false
    ringCorner: 5
    onActivated: toggled()

    Accessible.checkable: true
    Accessible.checked: root.state === "on"
    Accessible.checkStateMixed: root.state === "mixed"
    Accessible.onToggleAction: root.activate()

    RoundedBox {
        objectName: root.objectName + "Box"
        width: 16
        height: 16
        radius: 5
        opacity: root.enabled ? 1 : 0.45
        color: root.state === "off" ? Theme.card : Theme.accent
        edgeColor: root.state === "off" ? Theme.checkEdge : Theme.clear
        edgeWidth: root.state === "off" ? 1 : 0

        // A pointer darkens the box, a press more so.
        Rectangle {
            objectName: root.objectName + "Shade"
            anchors.fill: parent
            radius: 5
            visible: root.hovered || root.down
            color: root.down ? Theme.segmentTrack : Theme.rowHover
        }

        Symbol {
            objectName: root.objectName + "Mark"
            anchors.centerIn: parent
            visible: root.state === "on"
            name: "checkmark"
            size: 9
            weight: "black"
            color: Theme.onAccent
        }

        Rectangle {
            objectName: root.objectName + "Bar"
            anchors.centerIn: parent
            visible: root.state === "mixed"
            width: 8
            height: 2
            radius: 1
            color: Theme.onAccent
        }
    }
}
