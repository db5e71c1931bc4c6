import QtQuick

// Leaves no moment in which the keyboard is nowhere: where the control it was on goes, is hidden or
// can be used no more, it goes home.
Item {
    id: root

    required property Window window
    readonly property Item held: window.activeFocusItem
    // What only passes the keyboard on to something inside it does not have it.
    readonly property bool isHeld: held !== null && held !== window.contentItem && held.visible
            && held.enabled && !(held instanceof FocusScope) && !(held instanceof Loader)

    signal lost()

    // Once what moves the keyboard on has had its turn. While a small window has the keyboard this
    // one counts as active too, and has to keep the place to which it comes back.
    Timer {
        id: look

        interval: 0
        onTriggered: if (root.window.contentItem.activeFocus && !root.isHeld) root.lost()
    }

    onHeldChanged: look.restart()
    onIsHeldChanged: look.restart()

    Connections {
        target: root.window

        function onActiveChanged() {
            look.restart()
        }
    }
}
