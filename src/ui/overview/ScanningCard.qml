import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// A scan at work: what it has found so far, and where it is looking.
Card {
    id: root

    required property var card
    property bool isOn: true
    readonly property Item mainButton: button
    property bool moves: true

    signal stopped()

    objectName: "scanningCard"
    implicitHeight: Math.max(animation.height, column.implicitHeight) + 56

    SweepingAnimation {
        id: animation

        objectName: "sweepingAnimation"
        x: Math.round((root.width - width - 40 - column.width) / 2)
        anchors.verticalCenter: parent.verticalCenter
        width: 280
        height: 220
        dark: Theme.dark
        running: root.isOn
        reducedMotion: Theme.reducedMotion
    }

    Column {
        id: column

        objectName: "scanningColumn"
        anchors { left: animation.right; leftMargin: 40; verticalCenter: parent.verticalCenter }
        width: Math.min(480, root.width - 96 - animation.width - 40)

        Words {
            objectName: "scanningTitle"
            width: parent.width
            text: root.card.title
            size: 14
            color: Theme.inkSoft
            Accessible.role: Accessible.Heading
        }
        Figures {
            objectName: "scanningAmount"
            // An amount that leaves may be longer than the one that comes.
            width: parent.width
            text: root.card.amount
            size: 48
            weight: Font.Bold
            tracking: -1.4
            animated: root.moves
        }
        Words {
            objectName: "scanningText"
            width: parent.width
            text: root.card.text
            color: Theme.inkSoft
            wraps: true
        }
        Item {
            width: parent.width
            height: 26

            ProgressTrack {
                objectName: "scanningTrack"
                y: 16
                width: parent.width
                height: 4
                name: root.card.title
                fraction: progress.value
                Accessible.description: Speech.percent(root.card.fraction)
            }
            Spring {
                id: progress

                target: root.card.fraction
                enabled: root.moves
                response: 0.5
                dampingFraction: 1
            }
        }
        Words {
            objectName: "scanningLocation"
            width: parent.width
            // It keeps its line while there is nothing to name.
            height: Math.max(implicitHeight, 14)
            text: root.card.location
            size: 11
            mono: true
            color: Theme.inkFaint
            elide: Text.ElideMiddle
        }
        ScanningRows {
            objectName: "scanningRows"
            width: parent.width
            topPadding: 14
            name: root.card.title
            rows: root.card.rows
        }
        Item {
            width: parent.width
            height: 16 + button.height

            CapsuleButton {
                id: button

                objectName: "scanningButton"
                y: 16
                button: root.card.button
                onPressed: root.stopped()
            }
        }
    }

    ButtonShortcut {
        button: root.card.button
        active: root.isOn && root.visible
        onActivated: root.stopped()
    }
}
