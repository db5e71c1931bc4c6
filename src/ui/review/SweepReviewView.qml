import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// Every item that a scan found, what becomes of the chosen ones, and the button that removes them.
Item {
    id: root

    required property var screen

    ReviewHeader {
        id: header

        objectName: "reviewHeader"
        anchors { left: parent.left; right: parent.right; top: parent.top }
        screen: root.screen
    }

    Words {
        objectName: "reviewMessage"
        anchors { horizontalCenter: parent.horizontalCenter; top: header.bottom; topMargin: 80 }
        width: Math.min(implicitWidth, root.width - 48)
        visible: text !== ""
        text: root.screen.message ?? ""
        color: Theme.inkSoft
    }

    ReviewScroll {
        objectName: "reviewScroll"
        anchors { left: parent.left; right: parent.right; top: header.bottom; bottom: footer.top }
        screen: root.screen
    }

    Hairline {
        objectName: "reviewFooterLine"
        anchors { left: parent.left; right: parent.right; bottom: footer.top }
    }

    SelectionFooter {
        id: footer

        objectName: "reviewFooter"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        size: root.screen.footer.size
        count: root.screen.footer.count
        note: root.screen.footer.note

        CapsuleButton {
            objectName: "reviewSweep"
            button: root.screen.footer.actions[0]
            large: true
            onPressed: root.screen.press("footer.actions", "0")
        }
    }
}
