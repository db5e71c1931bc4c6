import QtQuick
import Morvane.Components
import Morvane.Theme

// A screen to go to.
Pressable {
    id: root

    property var row: ({ label: "", symbol: "", selected: false })

    signal chosen()
    signal moved(int step)

    implicitHeight: 28
    name: row.label
    role: Accessible.ListItem
    tabStop: row.selected
    // On the screen on view Return is left to its main button.
    returnPresses: !row.selected
    ringCorner: 7
    // It fills the gap to the next row, which would paint over more.
    ringDistance: 0
    Accessible.selectable: true
    Accessible.selected: row.selected
    onActivated: chosen()
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)

    Rectangle {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        z: -1
        radius: 7
        color: root.row.selected ? Theme.accentTintStrong
                : root.hovered ? Theme.rowHover : Theme.clear
    }
    Icon {
        id: icon

        objectName: root.objectName + "Icon"
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        size: 17
        name: root.row.symbol
        tint: root.row.selected ? Theme.accent : Theme.inkSoft
    }
    Words {
        objectName: root.objectName + "Label"
        anchors { left: icon.right; leftMargin: 8; right: parent.right; rightMargin: 10
                  verticalCenter: parent.verticalCenter }
        text: root.row.label
        weight: root.row.selected ? Font.DemiBold : Font.Normal
        accessible: false
    }
}
