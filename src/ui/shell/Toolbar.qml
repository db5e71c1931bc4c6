import QtQuick
import Morvane.Components
import Morvane.Theme

// The head of a screen: its title, and what stands at the other end.
Item {
    id: root

    property string title
    property string note
    property real padding: 28

    implicitHeight: 44

    Words {
        id: heading

        objectName: root.objectName + "Title"
        anchors { left: parent.left; leftMargin: root.padding; verticalCenter: parent.verticalCenter }
        width: Math.min(implicitWidth, root.width - 2 * root.padding - 16 - trailing.width)
        text: root.title
        size: 15
        weight: Font.Bold
        Accessible.role: Accessible.Heading
    }
    Words {
        id: trailing

        objectName: root.objectName + "Note"
        anchors { right: parent.right; rightMargin: root.padding; baseline: heading.baseline }
        width: Math.min(implicitWidth, root.width / 2)
        visible: text !== ""
        text: root.note
        color: Theme.inkFaint
    }
}
