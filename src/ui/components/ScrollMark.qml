import QtQuick
import Morvane.Theme

// How far a list is scrolled, shown while it moves or the pointer is near.
Item {
    id: root

    property Flickable scroll: null
    // Of the whole and of what is on view; nothing without a list.
    readonly property real whole: scroll ? scroll.contentHeight : 0
    readonly property real onView: scroll ? scroll.height : 0

    parent: scroll
    anchors.right: parent ? parent.right : undefined
    height: onView
    width: 14
    visible: whole > onView + 1

    Rectangle {
        id: thumb

        readonly property real room: root.height - 8
        readonly property real reach: root.whole - root.onView

        anchors { right: parent.right; rightMargin: 4 }
        y: 4 + (room - height) * Math.max(0, Math.min(1, (root.scroll ? root.scroll.contentY : 0) / Math.max(1, reach)))
        width: area.containsMouse || area.pressed ? 8 : 6
        height: Math.max(30, room * root.onView / Math.max(1, root.whole))
        radius: width / 2
        color: Theme.ink
        opacity: root.scroll?.moving || area.containsMouse || area.pressed ? 0.35 : 0.14
    }
    MouseArea {
        id: area

        property real grip: 0

        anchors.fill: parent
        enabled: root.visible
        hoverEnabled: true
        preventStealing: true
        onPressed: mouse => {
            const inside = mouse.y >= thumb.y && mouse.y <= thumb.y + thumb.height
            grip = inside ? mouse.y - thumb.y : thumb.height / 2
            pull(mouse.y)
        }
        onPositionChanged: mouse => { if (pressed) pull(mouse.y) }

        function pull(y: real) {
            const part = (y - grip - 4) / Math.max(1, thumb.room - thumb.height)
            root.scroll.contentY = Math.max(0, Math.min(1, part)) * thumb.reach
        }
    }
}
