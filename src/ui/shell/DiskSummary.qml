import QtQuick
import Morvane.Components
import Morvane.Theme

// How full the disk is, at the foot of the sidebar.
Item {
    id: root

    required property var disk

    implicitHeight: name.height + 7 + track.height

    Words {
        id: name

        objectName: root.objectName + "Name"
        x: 10
        width: Math.min(implicitWidth, root.width - 28 - free.width)
        text: root.disk.name
        size: 11.5
        color: Theme.inkSoft
    }
    Words {
        id: free

        objectName: root.objectName + "Free"
        anchors { right: parent.right; rightMargin: 10 }
        text: root.disk.free
        size: 11.5
        weight: Font.DemiBold
    }
    ProgressTrack {
        id: track

        objectName: root.objectName + "Track"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom
                  leftMargin: 10; rightMargin: 10 }
        height: 5
        name: root.disk.name
        fraction: root.disk.fraction
        glides: true
    }
}
