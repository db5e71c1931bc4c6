pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// How far the scan is with each category.
Column {
    id: root

    property string name
    property var rows: []

    spacing: 7
    Accessible.role: Accessible.List
    Accessible.name: root.name

    Repeater {
        model: root.rows.length

        delegate: Item {
            id: row

            required property int index
            readonly property var content: root.rows[index]

            objectName: "scanningRow" + index
            width: root.width
            height: Math.max(16, label.implicitHeight)
            Accessible.role: Accessible.ListItem
            Accessible.name: content.label + ", " + content.value

            Rectangle {
                id: mark

                objectName: row.objectName + "Mark"
                anchors.verticalCenter: parent.verticalCenter
                width: 16
                height: 16
                radius: 8
                antialiasing: true
                color: row.content.finished ? Theme.accent : Theme.clear
                border.width: 2
                border.color: Theme.accent

                Symbol {
                    objectName: row.objectName + "Check"
                    anchors.centerIn: parent
                    visible: row.content.finished
                    name: "checkmark"
                    size: 8
                    weight: "black"
                    color: Theme.onAccent
                }
            }
            Words {
                id: label

                objectName: row.objectName + "Label"
                anchors { left: mark.right; leftMargin: 10; verticalCenter: parent.verticalCenter }
                width: Math.min(implicitWidth, value.x - x - 10)
                text: row.content.label
                accessible: false
            }
            Figures {
                id: value

                objectName: row.objectName + "Value"
                anchors { right: parent.right; baseline: label.baseline }
                text: row.content.value
                color: Theme.inkSoft
                accessible: false
            }
        }
    }
}
