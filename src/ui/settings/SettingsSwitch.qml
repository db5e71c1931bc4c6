import QtQuick
import Morvane.Components
import Morvane.Theme

// A line with a switch.
SettingsLine {
    id: root

    property var toggle: ({ label: "", on: false, enabled: false })

    signal toggled(bool on)

    label: toggle.label
    ink: toggle.enabled ? Theme.ink : Theme.inkFaint

    Toggle {
        objectName: root.objectName + "Switch"
        label: root.toggle.label
        on: root.toggle.on
        enabled: root.toggle.enabled
        onToggled: on => root.toggled(on)
    }
}
