import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// The main window: the commands, the sidebar, and the screen on view.
Window {
    id: root

    required property var model
    // Whether the commands have a bar in the window, because the system has none for them.
    property bool showsMenuBar: true

    objectName: "window"
    width: 1100
    height: 720
    minimumWidth: 980
    minimumHeight: 640 + menuBar.height
    color: Theme.surface
    title: model.shell.windowTitle

    MenuStrip {
        id: menuBar

        objectName: "menuBar"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        visible: root.showsMenuBar
        height: visible ? implicitHeight : 0
        shell: root.model.shell
    }

    Shortcuts { shell: root.model.shell }

    Item {
        objectName: "main"
        anchors { left: parent.left; right: parent.right; top: menuBar.bottom; bottom: parent.bottom }

        Sidebar {
            id: sidebar

            objectName: "sidebar"
            anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
            width: divider.position
            screen: root.model.sidebar
        }

        SidebarDivider {
            id: divider

            objectName: "divider"
            anchors { top: parent.top; bottom: parent.bottom }
            // It can be pulled on both of its sides.
            z: 1
            x: position - width / 2
            furthest: Math.max(200, Math.min(260, root.width - 680))
        }

        Detail {
            objectName: "detail"
            anchors { left: sidebar.right; right: parent.right; top: parent.top; bottom: parent.bottom }
            model: root.model
        }
    }

    FocusKeeper {
        window: root
        onLost: sidebar.takeKeyboard()
    }

    Announcement { text: root.model.announcement }
}
