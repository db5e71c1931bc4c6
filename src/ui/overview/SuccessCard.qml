import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// After a sweep: how much was freed, and where it is now.
Card {
    id: root

    required property var card
    property bool isOn: true
    readonly property Item mainButton: done

    signal trashOpened()
    signal finished()

    objectName: "successCard"
    implicitHeight: column.implicitHeight + 64

    Item {
        anchors.fill: parent
        clip: true

        Confetti {
            objectName: "confetti"
            anchors.fill: parent
            dark: Theme.dark
            running: root.isOn
            reducedMotion: Theme.reducedMotion
        }
    }

    Column {
        id: column

        x: 32
        y: 32
        width: parent.width - 64
        spacing: 10

        RoundedBox {
            objectName: "successDisc"
            anchors.horizontalCenter: parent.horizontalCenter
            width: 72
            height: 72
            radius: 36
            color: Theme.accentTint

            Symbol {
                objectName: "successCheck"
                anchors.centerIn: parent
                name: "checkmark"
                size: 30
                color: Theme.accent
            }
        }
        Words {
            objectName: "successTitle"
            width: parent.width
            text: root.card.title
            size: 30
            weight: Font.Bold
            tracking: -0.6
            wraps: true
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        Words {
            objectName: "successText"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(420, parent.width)
            text: root.card.text
            size: 14
            color: Theme.inkSoft
            wraps: true
            balanced: true
            horizontalAlignment: Text.AlignHCenter
        }
        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: buttons.width
            height: 14 + buttons.height

            Row {
                id: buttons

                y: 14
                spacing: 10

                CapsuleButton {
                    objectName: "successOpenTrash"
                    visible: root.card.openTrash !== null
                    button: root.card.openTrash
                    large: true
                    backing: Theme.card
                    onPressed: root.trashOpened()
                }
                CapsuleButton {
                    id: done

                    objectName: "successDone"
                    button: root.card.button
                    large: true
                    backing: Theme.card
                    onPressed: root.finished()
                }
            }
        }
    }

    ButtonShortcut {
        button: root.card.button
        active: root.isOn && root.visible
        onActivated: root.finished()
    }
}
