import QtQuick
import Morvane.Theme

// The bar under a list of what can go: how much is selected, what becomes of it, and the actions.
Item {
    id: root

    property string size
    property string count
    property string note
    property bool showsDivider: true
    default property alias actions: tray.data

    implicitWidth: amount.width + tray.width + 90
    implicitHeight: 62

    Rectangle {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        color: Theme.surface
    }

    Column {
        id: amount

        objectName: root.objectName + "Amount"
        anchors { left: parent.left; leftMargin: 24; verticalCenter: parent.verticalCenter }

        Figures {
            objectName: root.objectName + "Size"
            text: root.size
            size: 17
            weight: Font.Bold
        }
        Words {
            objectName: root.objectName + "Count"
            text: root.count
            size: 11.5
            color: Theme.inkSoft
        }
    }
    Hairline {
        id: divider

        objectName: root.objectName + "Divider"
        anchors { left: amount.right; leftMargin: 14; verticalCenter: parent.verticalCenter }
        height: 28
        vertical: true
        visible: root.showsDivider
    }
    Words {
        objectName: root.objectName + "Note"
        anchors { left: root.showsDivider ? divider.right : amount.right; leftMargin: 14
                  right: tray.left; rightMargin: 14; verticalCenter: parent.verticalCenter }
        text: root.note
        size: 12
        color: Theme.inkSoft
        wraps: true
        maximumLines: 2
    }
    Row {
        id: tray

        anchors { right: parent.right; rightMargin: 24; verticalCenter: parent.verticalCenter }
        spacing: 14
    }
}
