import QtQuick
import Morvane.Components
import Morvane.Theme

// How much of a whole is done or full. With a name it is a progress bar to an assistive client,
// without one it is decoration beside words that say the same.
Item {
    id: root

    property real fraction: 0
    property color tint: Theme.accent
    property string name
    // Whether it moves to a new part instead of jumping there.
    property bool glides: false
    readonly property real part: fraction > 0 ? Math.min(fraction, 1) : 0

    implicitWidth: 100
    implicitHeight: 5

    Accessible.role: Accessible.ProgressBar
    Accessible.name: root.name
    Accessible.description: Speech.percent(root.part)
    Accessible.ignored: root.name === ""

    Rectangle {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        radius: height / 2
        color: Theme.trackFill
    }

    Rectangle {
        objectName: root.objectName + "Fill"
        width: root.width * shown.value
        height: root.height
        radius: height / 2
        visible: width > 0
        color: root.tint
    }

    Spring {
        id: shown

        objectName: root.objectName + "Motion"
        target: root.part
        enabled: root.glides
        response: 0.5
        dampingFraction: 1
    }
}
