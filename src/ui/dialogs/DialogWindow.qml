import QtQuick
import Morvane.Theme

// A small window beside the main one. Escape closes it, as its close button does.
Window {
    id: root

    property bool shown: false
    default property alias content: body.data

    signal dismissed()

    flags: Qt.Dialog
    color: Theme.surface
    visible: shown
    onClosing: dismissed()

    FocusScope {
        id: body

        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.dismissed()
    }
}
