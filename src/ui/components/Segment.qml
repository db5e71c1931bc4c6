import QtQuick
import Morvane.Theme

// One option of a `SegmentedControl`.
Pressable {
    id: root

    property bool selected: false

    // An arrow asked for the segment so many places on.
    signal went(int steps)

    implicitWidth: words.implicitWidth + 18
    implicitHeight: 20
    role: Accessible.RadioButton
    ringCorner: 5
    ringDistance: 0

    Accessible.checkable: true
    Accessible.checked: root.selected
    Accessible.selectable: true
    Accessible.selected: root.selected

    Keys.onLeftPressed: root.went(-1)
    Keys.onRightPressed: root.went(1)
    Keys.onUpPressed: root.went(-1)
    Keys.onDownPressed: root.went(1)

    Rectangle {
        objectName: root.objectName + "Shade"
        anchors.fill: parent
        radius: 5
        visible: (root.hovered || root.down) && !root.selected
        color: root.down ? Theme.trackFill : Theme.rowHover
    }

    // Both weights take the room of the wider one, so that choosing moves nothing.
    Words {
        id: words
        visible: false
        text: root.name
        size: 11.5
        weight: Font.Medium
        accessible: false
    }

    Words {
        objectName: root.objectName + "Words"
        anchors.centerIn: parent
        text: root.name
        size: 11.5
        weight: root.selected ? Font.Medium : Font.Normal
        color: root.enabled ? (root.selected ? Theme.ink : Theme.inkSoft) : Theme.inkFaint
        accessible: false
    }
}
