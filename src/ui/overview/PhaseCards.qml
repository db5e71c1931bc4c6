pragma ComponentBehavior: Bound

import QtQuick

// The card for the phase of the scan. A new phase fades its card in over the one before.
Item {
    id: root

    required property var screen
    property bool moves: true
    readonly property PhaseSlot current: idle.isOn ? idle : scanning.isOn ? scanning
            : done.isOn ? done : success.isOn ? success : spotless

    implicitHeight: current.implicitHeight

    // After all slots have taken what was told.
    Timer {
        id: focusing

        interval: 0
        onTriggered: root.current.card?.mainButton.forceActiveFocus(Qt.OtherFocusReason)
    }

    PhaseSlot {
        id: idle

        width: root.width
        kind: "idle"
        told: root.screen.card
        fades: root.moves
        onLeftWithFocus: focusing.start()
        delegate: IdleCard {
            width: root.width
            card: idle.content
            isOn: idle.isOn
            onSwept: root.screen.press("card.button")
        }
    }
    PhaseSlot {
        id: scanning

        width: root.width
        kind: "scanning"
        told: root.screen.card
        fades: root.moves
        onLeftWithFocus: focusing.start()
        delegate: ScanningCard {
            width: root.width
            card: scanning.content
            isOn: scanning.isOn
            moves: root.moves
            onStopped: root.screen.press("card.button")
        }
    }
    PhaseSlot {
        id: done

        width: root.width
        kind: "done"
        told: root.screen.card
        fades: root.moves
        keeps: true
        onLeftWithFocus: focusing.start()
        delegate: ResultsView {
            width: root.width
            card: done.content
            isOn: done.isOn
            onScannedAgain: root.screen.press("card.scanAgain")
            onReviewed: root.screen.press("card.review")
            onChosen: id => root.screen.press("card.cards", id)
        }
    }
    PhaseSlot {
        id: success

        width: root.width
        kind: "success"
        told: root.screen.card
        fades: root.moves
        onLeftWithFocus: focusing.start()
        delegate: SuccessCard {
            width: root.width
            card: success.content
            isOn: success.isOn
            onTrashOpened: root.screen.press("card.openTrash")
            onFinished: root.screen.press("card.button")
        }
    }
    PhaseSlot {
        id: spotless

        width: root.width
        kind: "empty"
        told: root.screen.card
        fades: root.moves
        onLeftWithFocus: focusing.start()
        delegate: SpotlessCard {
            width: root.width
            card: spotless.content
            isOn: spotless.isOn
            onScannedAgain: root.screen.press("card.button")
        }
    }
}
