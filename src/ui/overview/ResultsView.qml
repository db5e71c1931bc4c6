import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// What a scan found: the sum of it, and a card for each category.
Item {
    id: root

    required property var card
    property bool isOn: true
    readonly property Item mainButton: review

    signal scannedAgain()
    signal reviewed()
    signal chosen(string id)

    implicitHeight: head.height + 16 + grid.implicitHeight
    // Other results begin at their first card.
    onIsOnChanged: grid.current = 0

    Item {
        id: head

        width: parent.width
        height: Math.max(headline.implicitHeight, review.height)

        Column {
            id: headline

            objectName: "resultsHeadline"
            anchors.bottom: parent.bottom
            width: again.x - 12
            spacing: 4

            Words {
                objectName: "resultsTitle"
                width: parent.width
                text: root.card.title
                size: 22
                weight: Font.Bold
                tracking: -0.4
                wraps: true
                Accessible.role: Accessible.Heading
            }
            Words {
                objectName: "resultsText"
                width: parent.width
                text: root.card.text
                color: Theme.inkSoft
                wraps: true
            }
        }
        CapsuleButton {
            id: again

            objectName: "resultsScanAgain"
            anchors { right: review.left; rightMargin: 12; bottom: parent.bottom }
            button: root.card.scanAgain
            large: true
            onPressed: root.scannedAgain()
        }
        CapsuleButton {
            id: review

            objectName: "resultsReview"
            anchors { right: parent.right; bottom: parent.bottom }
            button: root.card.review
            large: true
            onPressed: root.reviewed()
        }
    }

    ResultsGrid {
        id: grid

        objectName: "resultsGrid"
        y: head.height + 16
        width: parent.width
        name: root.card.title
        cards: root.card.cards
        leftAlone: root.card.leftAlone
        onChosen: id => root.chosen(id)
    }

    ButtonShortcut {
        button: root.card.review
        active: root.isOn && root.visible
        onActivated: root.reviewed()
    }
}
