import QtQuick
import Morvane.Components
import Morvane.Theme

// A swatch, what it stands for, and how much that is.
Item {
    id: root

    property string label
    property string size
    default property alias swatch: swatch.data

    implicitWidth: words.x + words.implicitWidth + 6 + figures.implicitWidth
    implicitHeight: words.implicitHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: label + ", " + size

    Item {
        id: swatch

        objectName: root.objectName + "Swatch"
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        clip: true
    }
    Words {
        id: words

        objectName: root.objectName + "Label"
        x: 14
        text: root.label
        size: 12
        accessible: false
    }
    Figures {
        id: figures

        objectName: root.objectName + "Size"
        anchors { left: words.right; leftMargin: 6; baseline: words.baseline }
        text: root.size
        size: 12
        color: Theme.inkSoft
        accessible: false
    }
}
