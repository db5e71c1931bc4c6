import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// What the figures leave out for want of access, and the way to give it.
Item {
    id: root

    // Null while there is nothing to say.
    property var note: null

    signal allowed()

    implicitHeight: words.implicitHeight

    Symbol {
        id: mark

        objectName: "diskNoteSymbol"
        anchors.verticalCenter: parent.verticalCenter
        name: root.note?.symbol ?? ""
        size: 11.5
        color: Theme.inkFaint
    }
    Words {
        id: words

        objectName: "diskNoteText"
        anchors { left: mark.right; leftMargin: 6 }
        width: Math.min(implicitWidth, root.width - mark.width - button.width - 12)
        text: root.note?.text ?? ""
        size: 11.5
        color: Theme.inkFaint
        wraps: true
    }
    TextButton {
        id: button

        objectName: "diskNoteButton"
        anchors { left: words.right; leftMargin: 6; baseline: words.baseline }
        button: root.note?.button ?? null
        fontSize: 11.5
        onPressed: root.allowed()
    }
}
