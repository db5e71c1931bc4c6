import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// Where a link would lead.
DialogWindow {
    id: root

    required property LinkNote note

    objectName: "linkNote"
    title: note.title
    shown: note.isOpen
    width: 540
    height: column.height + 40
    minimumWidth: 440
    minimumHeight: 120
    first: close
    onDismissed: note.dismiss()

    Column {
        id: column

        objectName: "linkColumn"
        x: 20
        y: 20
        width: root.width - 40
        spacing: 10

        Words {
            objectName: "linkText"
            width: parent.width
            text: root.note.text
            wraps: true
        }
        SelectableText {
            objectName: "link"
            width: parent.width
            text: root.note.link
            mono: true
            color: Theme.inkSoft
            wrapMode: TextEdit.WrapAnywhere
        }
        Item {
            width: parent.width
            height: close.height + 6

            CapsuleButton {
                id: close

                objectName: "linkClose"
                anchors { right: parent.right; bottom: parent.bottom }
                button: root.note.close
                onPressed: root.note.dismiss()
            }
        }
    }

    ButtonShortcut {
        button: root.note.close
        onActivated: root.note.dismiss()
    }
    Connections {
        target: root.note

        function onShown() {
            root.requestActivate()
        }
    }
}
