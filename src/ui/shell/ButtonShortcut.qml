import QtQuick
import Morvane.Window

// The key of a button, while the button can be used and its screen is on view.
Shortcut {
    property var button: null
    property bool active: true

    enabled: active && (button?.enabled ?? false) && (button?.key ?? null) !== null
    sequences: button?.key ? [KeyNames.sequence(button.key)]
                             .concat(button.key === "Return" ? ["Enter"] : []) : []
}
