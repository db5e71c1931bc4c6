import QtQuick
import Morvane.Components
import Morvane.Theme

// The title of a menu in the bar, and the menu under it.
Pressable {
    id: root

    property var content: ({ title: "", items: [] })
    readonly property alias opened: menu.opened

    signal chosen(string id)
    // An arrow asked for the entry, or for its menu, so many places on.
    signal went(int steps)
    signal wentOpen(int steps)

    function open() {
        forceActiveFocus(InputMode.keyboard ? Qt.TabFocusReason : Qt.MouseFocusReason)
        menu.open()
        // The keyboard begins at the first command, the pointer where it goes.
        menu.currentIndex = InputMode.keyboard ? 0 : -1
    }
    function close() {
        menu.close()
    }

    implicitWidth: words.implicitWidth + 20
    implicitHeight: 22
    name: content.title
    role: Accessible.MenuItem
    // Inside, as there is no room around.
    ringCorner: 5
    ringDistance: -2
    Keys.onDownPressed: activate()
    Keys.onLeftPressed: went(-1)
    Keys.onRightPressed: went(1)

    Rectangle {
        anchors.fill: parent
        radius: 5
        color: root.opened || root.hovered ? Theme.rowHover : Theme.clear
    }
    Words {
        id: words

        objectName: root.objectName + "Words"
        anchors.centerIn: parent
        text: root.name
        size: 12.5
        accessible: false
    }
    CommandMenu {
        id: menu

        y: root.height + 2
        commands: root.content.items
        onChosen: id => root.chosen(id)
        onWent: steps => root.wentOpen(steps)
        // A command takes the keyboard where it leads.
        onClosed: {
            if (InputMode.keyboard && !acted)
                root.forceActiveFocus(Qt.TabFocusReason)
        }
    }
}
