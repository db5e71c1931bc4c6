import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// What a command is called, and its shortcut at the other end.
Item {
    id: root

    property var command: ({ label: "", key: null })
    property bool usable: true
    property bool marked: false

    Words {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        text: root.command.label
        color: !root.usable ? Theme.inkFaint : root.marked ? Theme.onAccent : Theme.ink
        accessible: false
    }
    Words {
        anchors { right: parent.right; baseline: label.baseline }
        text: KeyNames.sequence(root.command.key ?? "")
        size: 12
        color: root.marked && root.usable ? Theme.onAccent : Theme.inkFaint
        accessible: false
    }
}
