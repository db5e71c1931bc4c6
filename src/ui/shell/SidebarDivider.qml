import QtQuick
import Morvane.Components

// The edge of the sidebar, which can be pulled.
Item {
    id: root

    property real furthest: 260
    property real wished: 216
    readonly property real position: Math.max(200, Math.min(furthest, wished))

    width: 9

    Hairline {
        objectName: root.objectName + "Line"
        // The sidebar's last pixel; an anchor to the centre would be rounded past it.
        x: root.width / 2 - width
        anchors { top: parent.top; bottom: parent.bottom }
        vertical: true
    }
    MouseArea {
        property real grip: 0

        anchors.fill: parent
        cursorShape: Qt.SplitHCursor
        preventStealing: true
        onPressed: mouse => grip = mouse.x - root.width / 2
        onPositionChanged: mouse => root.wished = Math.max(200, Math.min(260,
                root.x + mouse.x - grip))
    }
}
