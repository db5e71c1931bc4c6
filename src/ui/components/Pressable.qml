import QtQuick
import Morvane.Components

// What can be pressed, by pointer, keyboard and assistive client alike; the look is its user's.
Item {
    id: root

    // What an assistive client calls it.
    property string name
    // What else that client is told while it can be used.
    property string detail
    property int role: Accessible.Button
    // Whether Return presses it too, and not Space alone.
    property bool returnPresses: true
    property bool tabStop: true
    property real ringCorner: 6
    property real ringDistance: 2
    property string tooltip
    readonly property bool hovered: hover.hovered && enabled
    readonly property bool down: area.pressed && area.containsMouse || keyDown
    property bool keyDown: false

    signal activated()

    function activate() {
        if (enabled)
            activated()
    }

    function isPress(key: int): bool {
        return key === Qt.Key_Space
                || returnPresses && (key === Qt.Key_Return || key === Qt.Key_Enter)
    }

    // What the keyboard is on may not stop being a stop; it does once the keyboard has left.
    activeFocusOnTab: enabled && tabStop || activeFocus
    onEnabledChanged: keyDown = false
    onActiveFocusChanged: keyDown = false

    Keys.onPressed: event => {
        if (!isPress(event.key) || event.modifiers & ~Qt.KeypadModifier)
            return
        event.accepted = true
        if (!event.isAutoRepeat)
            keyDown = true
    }
    Keys.onReleased: event => {
        if (!isPress(event.key) || !keyDown || event.isAutoRepeat)
            return
        event.accepted = true
        keyDown = false
        activate()
    }
    // Return belongs to the control the keyboard is on before it belongs to the window's default.
    Keys.onShortcutOverride: event => event.accepted = InputMode.keyboard && isPress(event.key)

    Accessible.role: root.role
    Accessible.name: root.name
    Accessible.description: root.enabled ? root.detail : Speech.unavailable
    Accessible.focusable: root.enabled
    Accessible.onPressAction: root.activate()

    HoverHandler { id: hover }

    MouseArea {
        id: area
        anchors.fill: parent
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
        onClicked: root.activate()
    }

    ToolTipArea {
        anchors.fill: parent
        text: root.tooltip
        keyboardShown: InputMode.keyboard && root.activeFocus
    }

    FocusRing {
        objectName: root.objectName + "Ring"
        shown: root.activeFocus
        corner: root.ringCorner
        distance: root.ringDistance
    }
}
