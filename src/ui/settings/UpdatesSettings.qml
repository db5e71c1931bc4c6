import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// Which version this is, and how a newer one comes.
SettingsSection {
    id: root

    required property var screen
    readonly property var told: screen.updates

    objectName: "updates"
    title: told.title

    SettingsSwitch {
        width: parent.width
        objectName: "updatesCheck"
        isFirst: true
        toggle: root.told.check
        onToggled: on => root.screen.press("updates.check", undefined, on)
    }
    SettingsSwitch {
        width: parent.width
        objectName: "updatesDownload"
        toggle: root.told.download
        onToggled: on => root.screen.press("updates.download", undefined, on)
    }
    SettingsLine {
        width: parent.width
        objectName: "version"
        label: root.told.version
        ink: Theme.inkSoft
        spoken: true

        CapsuleButton {
            objectName: "checkForUpdates"
            button: root.told.button
            onPressed: root.screen.press("updates.button")
        }
    }
}
