import QtQuick
import Morvane.Components
import Morvane.Theme

// A text that can be selected and copied, and nothing else done to.
TextEdit {
    id: root

    property bool mono: false
    // Whether the ring of the keyboard lies around the text itself.
    property bool ringed: true

    readOnly: true
    selectByMouse: true
    textFormat: TextEdit.PlainText
    wrapMode: TextEdit.Wrap
    color: Theme.ink
    selectionColor: Theme.accent
    selectedTextColor: Theme.onAccent
    font.family: mono ? Theme.monoFamily : Theme.family
    font.pixelSize: mono ? 11 : 12
    activeFocusOnTab: true
    Keys.onShortcutOverride: event => event.accepted = event.matches(StandardKey.Copy)

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.focusable: true

    HoverHandler { cursorShape: Qt.IBeamCursor }
    FocusRing {
        shown: root.activeFocus && root.ringed
        distance: 4
        corner: 4
    }
}
