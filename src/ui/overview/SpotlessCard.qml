import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// A scan that found nothing.
Card {
    id: root

    required property var card
    property bool isOn: true
    readonly property Item mainButton: button

    signal scannedAgain()

    objectName: "spotlessCard"
    implicitHeight: column.implicitHeight + 64

    Column {
        id: column

        x: 32
        y: 32
        width: parent.width - 64
        spacing: 10

        SpotlessIllustration {
            objectName: "spotlessIllustration"
            anchors.horizontalCenter: parent.horizontalCenter
            size: 150
            width: size
            height: size
            dark: Theme.dark
        }
        Words {
            objectName: "spotlessTitle"
            width: parent.width
            text: root.card.title
            size: 26
            weight: Font.Bold
            tracking: -0.5
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
        }
        Words {
            objectName: "spotlessText"
            width: parent.width
            text: root.card.text
            size: 15
            color: Theme.inkSoft
            wraps: true
            horizontalAlignment: Text.AlignHCenter
        }
        Words {
            objectName: "spotlessDetail"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(360, parent.width)
            text: root.card.detail
            size: 12.5
            color: Theme.inkFaint
            wraps: true
            balanced: true
            horizontalAlignment: Text.AlignHCenter
        }
        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: button.width
            height: 10 + button.height

            CapsuleButton {
                id: button

                objectName: "spotlessButton"
                y: 10
                button: root.card.button
                onPressed: root.scannedAgain()
            }
        }
    }

    ButtonShortcut {
        button: root.card.button
        active: root.isOn && root.visible
        onActivated: root.scannedAgain()
    }
}
