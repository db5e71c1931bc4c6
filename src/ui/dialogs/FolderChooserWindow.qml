import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// Lets the user choose folders of the disk.
DialogWindow {
    id: root

    required property FolderChooser chooser

    objectName: "folderChooser"
    title: chooser.title
    shown: chooser.isOpen
    modality: Qt.WindowModal
    width: 620
    height: 460
    minimumWidth: 460
    minimumHeight: 340
    onDismissed: chooser.dismiss()
    first: list

    Words {
        id: message

        objectName: "chooserMessage"
        x: 20
        y: 18
        width: root.width - 40
        text: root.chooser.message
        wraps: true
    }
    Item {
        id: bar

        anchors { left: parent.left; right: parent.right; top: message.bottom; margins: 20
                  topMargin: 12 }
        height: up.height

        Words {
            anchors { left: parent.left; right: up.left; rightMargin: 16
                      verticalCenter: parent.verticalCenter }
            text: root.chooser.location
            weight: Font.DemiBold
            elide: Text.ElideMiddle
            Accessible.role: Accessible.Heading
        }
        CapsuleButton {
            id: up

            objectName: "chooserUp"
            anchors.right: parent.right
            button: root.chooser.up
            fontSize: 12
            onPressed: root.chooser.goUp()
        }
    }
    Card {
        anchors { left: parent.left; right: parent.right; top: bar.bottom; bottom: foot.top
                  leftMargin: 20; rightMargin: 20; topMargin: 10; bottomMargin: 16 }

        Item {
            anchors.fill: parent
            Accessible.role: Accessible.List
            Accessible.name: root.chooser.location
            Accessible.ignored: list.count === 0

            FolderList {
                id: list

                objectName: "chooserList"
                anchors.fill: parent
                chooser: root.chooser
            }
        }
        Words {
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 40)
            visible: text !== ""
            text: root.chooser.note
            color: Theme.inkSoft
        }
    }
    Item {
        id: foot

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 20 }
        height: prompt.height

        Words {
            anchors { left: parent.left; right: cancel.left; rightMargin: 16
                      verticalCenter: parent.verticalCenter }
            text: root.chooser.chosen
            size: 12
            color: Theme.inkSoft
            elide: Text.ElideMiddle
        }
        CapsuleButton {
            id: cancel

            objectName: "chooserCancel"
            anchors { right: prompt.left; rightMargin: 10 }
            button: root.chooser.cancel
            large: true
            onPressed: root.chooser.dismiss()
        }
        CapsuleButton {
            id: prompt

            objectName: "chooserPrompt"
            anchors.right: parent.right
            button: root.chooser.prompt
            large: true
            onPressed: root.chooser.accept()
        }
    }

    ButtonShortcut {
        button: root.chooser.prompt
        onActivated: root.chooser.accept()
    }
}
