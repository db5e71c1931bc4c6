import QtQuick
import Morvane.Art
import Morvane.Theme

// A button in a capsule. While it is busy a spinner stands in place of its words, or beside them
// with `busyBeside`.
Pressable {
    id: root

    // `label`, `symbol`, `enabled`, `kind`, `key`, `busy`, `tooltip`, as the screen has them.
    property var button: null
    property bool large: false
    property real fontSize: 13
    property int fontWeight: prominent ? Font.DemiBold : Font.Medium
    // A shadow in the accent.
    property bool glowing: false
    property bool busyBeside: false
    // What the capsule lies on, where something moves behind it that may not show through.
    property color backing: Theme.clear
    // Around the words, in addition to the capsule's own room.
    property real paddingX: 0
    property real paddingY: 0

    readonly property bool busy: button?.busy ?? false
    readonly property bool prominent: button?.kind === "prominent"
    readonly property bool destructive: button?.kind === "destructive"
    readonly property color ink: !enabled ? Theme.inkFaint
            : prominent ? Theme.onAccent : destructive ? Theme.accent : Theme.ink

    signal pressed()

    enabled: button?.enabled ?? false
    name: button?.label ?? ""
    tooltip: button?.tooltip ?? ""
    ringCorner: height / 2
    implicitHeight: (large ? 32 : fontSize < 13 ? 22 : 24) + 2 * paddingY
    implicitWidth: (busy && !busyBeside ? spinner.width + 60
            : content.implicitWidth + (large ? 32 : 24)) + 2 * paddingX
    onActivated: pressed()

    RoundedBox {
        anchors.fill: parent
        visible: root.backing.a > 0
        radius: height / 2
        color: root.backing
    }
    RoundedBox {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        radius: height / 2
        color: !root.enabled ? Theme.segmentTrack : root.prominent ? Theme.accent
                : root.destructive ? Theme.accentTintStrong : Theme.segmentTrack
        shadowColor: root.glowing && root.enabled ? Theme.faded(Theme.accent, 0.28) : Theme.clear
        shadowRadius: root.glowing ? 9 : 0
        shadowOffset: root.glowing ? 6 : 0
    }

    Rectangle {
        objectName: root.objectName + "Shade"
        anchors.fill: parent
        radius: height / 2
        visible: root.hovered || root.down
        color: root.down ? Theme.faded(Theme.checkEdge, 0.6) : Theme.trackFill
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: Math.round(root.fontSize * 0.45)
        visible: !root.busy || root.busyBeside

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.busy && root.busyBeside
            tint: root.ink
            size: 14
        }

        Icon {
            objectName: root.objectName + "Icon"
            anchors.verticalCenter: parent.verticalCenter
            visible: name !== ""
            name: root.button?.symbol ?? ""
            size: Math.round(root.fontSize * 1.2)
            tint: root.ink
        }

        Words {
            objectName: root.objectName + "Words"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.width - 16)
            text: root.button?.label ?? ""
            size: root.fontSize
            weight: root.fontWeight
            color: root.ink
            accessible: false
        }
    }

    Spinner {
        id: spinner

        objectName: root.objectName + "Spinner"
        anchors.centerIn: parent
        visible: root.busy && !root.busyBeside
        tint: root.ink
    }
}
