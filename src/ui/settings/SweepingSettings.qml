import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// When Morvane looks, what it says of it, and where what was swept goes.
SettingsSection {
    id: root

    required property var screen
    readonly property var told: screen.sweeping

    objectName: "sweeping"
    title: told.title

    SettingsLine {
        objectName: "schedule"
        width: parent.width
        isFirst: true
        label: root.told.schedule.label

        SegmentedControl {
            objectName: "schedulePicker"
            label: root.told.schedule.label
            options: root.told.schedule.options
            selected: root.told.schedule.selected ?? -1
            onChosen: index => root.screen.press("sweeping.schedule", undefined, index)
        }
    }
    SettingsSwitch {
        objectName: "remind"
        width: parent.width
        toggle: root.told.remind
        onToggled: on => root.screen.press("sweeping.remind", undefined, on)
        more: Item {
            width: parent?.width ?? 0
            height: note.implicitHeight
            visible: root.told.notificationsOff !== null

            Words {
                id: note

                objectName: "notificationsOff"
                width: Math.min(implicitWidth, parent.width - way.width - 6)
                text: root.told.notificationsOff?.text ?? ""
                size: 12
                color: Theme.inkSoft
            }
            TextButton {
                id: way

                objectName: "notificationsOffButton"
                anchors { left: note.right; leftMargin: 6; baseline: note.baseline }
                button: root.told.notificationsOff?.button ?? null
                onPressed: root.screen.press("sweeping.notificationsOff.button")
            }
        }
    }
    SettingsSwitch {
        width: parent.width
        objectName: "showInMenuBar"
        toggle: root.told.menuBar
        onToggled: on => root.screen.press("sweeping.menuBar", undefined, on)
    }
    SettingsSwitch {
        width: parent.width
        objectName: "trash"
        toggle: root.told.trash
        onToggled: on => root.screen.press("sweeping.trash", undefined, on)
        more: Words {
            objectName: "trashCaption"
            width: parent?.width ?? 0
            text: root.told.trashCaption
            size: 12
            color: Theme.inkSoft
            wraps: true
        }
    }
}
