import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// What is told about new versions.
DialogWindow {
    id: root

    required property UpdateNotice notice
    readonly property bool hasNotes: notice.notes !== ""

    objectName: "update"
    title: notice.windowTitle
    shown: notice.isOpen
    width: 510
    height: Math.max(words.y + words.height, 76) + (hasNotes ? 216 : 0) + foot.height + 40
    minimumWidth: 420
    minimumHeight: 140
    first: notice.action !== null ? action : close
    onDismissed: notice.dismiss()

    AppLogo {
        id: logo

        objectName: "updateLogo"
        x: 20
        y: 20
        size: 56
    }
    Column {
        id: words

        objectName: "updateWords"
        anchors { left: logo.right; leftMargin: 18; right: parent.right; rightMargin: 20 }
        y: 20
        spacing: 6

        Words {
            objectName: "updateTitle"
            width: parent.width
            text: root.notice.title
            size: 15
            weight: Font.Bold
            wraps: true
            Accessible.role: Accessible.Heading
        }
        Words {
            objectName: "updateText"
            width: parent.width
            text: root.notice.text
            color: Theme.inkSoft
            wraps: true
        }
        ProgressTrack {
            objectName: "updateTrack"
            width: parent.width
            visible: root.notice.isDownloading
            fraction: root.notice.fraction
            name: root.notice.title
        }
    }
    Rectangle {
        objectName: "updateNotesGround"
        anchors { left: words.left; right: words.right; top: words.bottom; topMargin: 14
                  bottom: foot.top; bottomMargin: 20 }
        visible: root.hasNotes
        radius: 8
        color: Theme.well
        border.width: Theme.hairline
        border.color: Theme.cardEdge

        Flickable {
            id: scroll

            function scrollBy(distance: real) {
                contentY = Math.max(0, Math.min(contentHeight - height, contentY + distance))
            }

            anchors { fill: parent; margins: 1 }
            contentHeight: notes.height + 20
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            SelectableText {
                id: notes

                objectName: "updateNotes"
                x: 11
                y: 10
                width: scroll.width - 28
                text: root.notice.notes
                ringed: false
                Keys.onUpPressed: scroll.scrollBy(-40)
                Keys.onDownPressed: scroll.scrollBy(40)
                Keys.onPressed: event => {
                    event.accepted = event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown
                    if (event.accepted)
                        scroll.scrollBy((event.key === Qt.Key_PageUp ? -1 : 1)
                                        * (scroll.height - 40))
                }
            }

            ScrollMark { scroll: scroll }
        }
        // Around all that is on view of the text.
        FocusRing {
            shown: notes.activeFocus
            corner: 8
        }
    }
    Row {
        id: foot

        objectName: "updateFoot"
        anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
        spacing: 10

        CapsuleButton {
            id: close

            objectName: "updateClose"
            button: root.notice.close
            onPressed: root.notice.dismiss()
        }
        CapsuleButton {
            id: action

            objectName: "updateAction"
            visible: root.notice.action !== null
            button: root.notice.action
            onPressed: root.notice.act()
        }
    }

    ButtonShortcut {
        button: root.notice.action ?? root.notice.close
        // Escape is every small window's own.
        active: button.key !== "Escape"
        onActivated: root.notice.action !== null ? root.notice.act() : root.notice.dismiss()
    }
    Connections {
        target: root.notice

        function onShown() {
            root.requestActivate()
        }
    }
}
