import QtQuick
import Morvane.Components
import Morvane.Window

// The home screen.
Item {
    id: root

    required property ScreenObject screen

    Toolbar {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        title: root.screen.title
        note: root.screen.lastSwept
    }
}
