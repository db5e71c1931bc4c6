import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// Before the first scan.
Card {
    id: root

    required property var card
    property bool isOn: true
    readonly property Item mainButton: button

    signal swept()

    objectName: "idleCard"
    implicitHeight: Math.max(illustration.height, column.implicitHeight) + 64

    IdleIllustration {
        id: illustration

        objectName: "idleIllustration"
        x: Math.round((root.width - width - 40 - column.width) / 2)
        anchors.verticalCenter: parent.verticalCenter
        size: 200
        width: size
        height: size
        dark: Theme.dark
    }

    Column {
        id: column

        objectName: "idleColumn"
        anchors { left: illustration.right; leftMargin: 40; verticalCenter: parent.verticalCenter }
        width: Math.min(340, root.width - 96 - illustration.width - 40)
        spacing: 10

        Words {
            objectName: "idleTitle"
            width: parent.width
            text: root.card.title
            size: 24
            weight: Font.Bold
            tracking: -0.5
            wraps: true
            Accessible.role: Accessible.Heading
        }
        Words {
            objectName: "idleText"
            width: parent.width
            text: root.card.text
            size: 14
            color: Theme.inkSoft
            lineSpacing: 3
            wraps: true
        }
        CapsuleButton {
            id: button

            objectName: "idleButton"
            button: root.card.button
            large: true
            glowing: true
            fontSize: 16
            paddingX: 16
            paddingY: 4
            onPressed: root.swept()
        }
        Item {
            width: parent.width
            height: 10 + foot.implicitHeight

            Words {
                id: foot

                objectName: "idleFoot"
                y: 10
                width: parent.width
                text: root.card.foot
                size: 12
                color: Theme.inkFaint
            }
        }
    }

    ButtonShortcut {
        button: root.card.button
        active: root.isOn && root.visible
        onActivated: root.swept()
    }
}
