import QtQuick
import Morvane.Components
import Morvane.Theme

// A part of the form: its title, its lines on a card, and what is to know about them.
Column {
    id: root

    property string title
    property string footer
    default property alias lines: body.data

    spacing: 8

    Words {
        objectName: root.objectName + "Title"
        x: 16
        width: Math.min(implicitWidth, root.width - 32)
        text: root.title
        weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }
    Card {
        objectName: root.objectName + "Card"
        width: root.width
        height: body.height

        Column {
            id: body

            objectName: root.objectName + "Lines"
            width: parent.width
        }
    }
    Words {
        objectName: root.objectName + "Footer"
        x: 16
        width: root.width - 32
        visible: text !== ""
        text: root.footer
        size: 12
        color: Theme.inkSoft
        wraps: true
    }
}
