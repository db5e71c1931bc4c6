import QtQuick
import Morvane.Theme

// A small window beside the main one. Escape closes it, as its close button does.
Window {
    id: root

    property bool shown: false
    // The control that the keyboard begins at, and goes to when this becomes another one.
    property Item first: null
    default property alias content: body.data

    signal dismissed()

    function takeKeyboard() {
        if (visible && first)
            first.forceActiveFocus(Qt.OtherFocusReason)
    }

    flags: Qt.Dialog
    color: Theme.surface
    visible: shown
    onClosing: dismissed()
    onVisibleChanged: takeKeyboard()
    onFirstChanged: turn.restart()

    // Once what the change depends on is on view.
    Timer {
        id: turn

        interval: 0
        onTriggered: root.takeKeyboard()
    }

    // No focus scope itself, or it would tell that it has the keyboard beside the control that does.
    Item {
        anchors.fill: parent
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title

        FocusScope {
            id: body

            anchors.fill: parent
            focus: true
            // A text that has the keyboard keeps the key from the shortcut, and has no use for it.
            Keys.onEscapePressed: root.dismissed()
        }
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.dismissed()
    }
}
