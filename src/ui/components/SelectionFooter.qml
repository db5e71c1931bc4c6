import QtQuick
import QtQuick.Layouts
import Morvane.Theme

// The bar under a list of what can go: how much is selected, what becomes of it, and the actions.
Item {
    id: root

    property string size
    property string count
    property string note
    property bool showsDivider: true
    default property alias actions: tray.data

    implicitWidth: layout.implicitWidth + 48
    implicitHeight: 62

    Rectangle {
        objectName: root.objectName + "Ground"
        anchors.fill: parent
        color: Theme.surface
    }

    RowLayout {
        id: layout

        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 24
        spacing: 14

        Column {
            objectName: root.objectName + "Amount"

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

        Rectangle {
            objectName: root.objectName + "Divider"
            visible: root.showsDivider
            implicitWidth: 0.5
            implicitHeight: 28
            color: Theme.hairlineColor
        }

        Words {
            objectName: root.objectName + "Note"
            text: root.note
            size: 12
            color: Theme.inkSoft
            wraps: true
            maximumLines: 2
            Layout.fillWidth: true
        }

        Row {
            id: tray
            spacing: 14
        }
    }
}
