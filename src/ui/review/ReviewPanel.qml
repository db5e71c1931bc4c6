import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// What an item is, where it lies, and the way there.
Item {
    id: root

    required property var panel
    property string rowLabel

    signal revealed()

    implicitHeight: column.implicitHeight + 26

    // The row above has the same ground, which goes on behind the upper corners; a gap there would
    // look like a fault.
    Rectangle {
        id: upper

        width: parent.width
        height: Math.round(parent.height / 2)
        antialiasing: false
        color: Theme.rowHover
    }
    Item {
        anchors { left: parent.left; right: parent.right; top: upper.bottom; bottom: parent.bottom }
        clip: true

        RoundedBox {
            objectName: root.objectName + "Ground"
            y: -parent.y
            width: root.width
            height: root.height
            radius: 10
            color: Theme.rowHover
        }
    }

    Column {
        id: column

        objectName: root.objectName + "Column"
        x: 70
        y: 12
        width: parent.width - 84
        spacing: 6

        Words {
            objectName: root.objectName + "Title"
            text: root.panel.title
            size: 11.5
            weight: Font.DemiBold
            color: Theme.accent
        }
        Words {
            objectName: root.objectName + "Text"
            width: Math.min(560, parent.width)
            text: root.panel.text
            color: Theme.inkSoft
            lineSpacing: 3
            wraps: true
        }
        Item {
            objectName: root.objectName + "Way"
            width: parent.width
            height: Math.max(place.implicitHeight, reveal.visible ? reveal.implicitHeight : 0)

            Symbol {
                id: folder

                objectName: root.objectName + "Folder"
                anchors.verticalCenter: parent.verticalCenter
                name: "folder"
                size: 11
                color: Theme.inkFaint
            }
            Words {
                id: place

                objectName: root.objectName + "Location"
                anchors { left: folder.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
                width: Math.min(implicitWidth, parent.width - folder.width - 6
                                - (reveal.visible ? reveal.width + 12 : 0))
                text: root.panel.location
                size: 11
                mono: true
                color: Theme.inkFaint
                elide: Text.ElideMiddle
            }
            CapsuleButton {
                id: reveal

                objectName: root.objectName + "Reveal"
                anchors { left: place.right; leftMargin: 12; verticalCenter: parent.verticalCenter }
                visible: root.panel.reveal !== null
                button: root.panel.reveal
                fontSize: 12
                name: (button?.label ?? "") + ", " + root.rowLabel
                onPressed: root.revealed()
            }
        }
    }
}
