import QtQuick
import Morvane.Components
import Morvane.Theme

// A sweep: when it was, what went, and whether it can come back.
SettingsRow {
    id: root

    property var sweep: ({ date: "", summary: "", problem: null, state: "", words: null,
                           restore: null })

    signal restored()

    name: [sweep.date, sweep.summary, sweep.problem, sweep.words].filter(text => text).join(", ")
    buttons: [restore]
    implicitHeight: Math.max(40, what.height + 20)

    Words {
        objectName: root.objectName + "Date"
        anchors { left: parent.left; leftMargin: 16; top: what.top }
        width: 150
        text: root.sweep.date
        color: Theme.inkSoft
        accessible: false
    }
    Column {
        id: what

        anchors { left: parent.left; leftMargin: 174; verticalCenter: parent.verticalCenter }
        width: root.width - x - 16 - (restore.visible ? restore.width : state.width) - 16
        spacing: 3

        Words {
            width: parent.width
            objectName: root.objectName + "Summary"
            text: root.sweep.summary
            accessible: false
        }
        Words {
            width: parent.width
            objectName: root.objectName + "Problem"
            visible: root.sweep.problem !== null
            text: root.sweep.problem ?? ""
            size: 12
            color: Theme.inkFaint
            wraps: true
            accessible: false
        }
    }
    Words {
        id: state

        objectName: root.objectName + "Words"
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        visible: root.sweep.words !== null
        text: root.sweep.words ?? ""
        size: 12
        color: root.sweep.state === "putBack" ? Theme.safeInk : Theme.inkFaint
        accessible: false
    }
    CapsuleButton {
        id: restore

        objectName: root.objectName + "Restore"
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        visible: root.sweep.restore !== null
        button: root.sweep.restore
        fontSize: 12
        name: (button?.label ?? "") + ", " + root.sweep.summary
        tabStop: false
        onPressed: root.restored()
        onActiveFocusChanged: root.followButton(restore)
    }
}
