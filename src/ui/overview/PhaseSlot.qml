import QtQuick
import Morvane.Theme

// The place of one phase's card. The card is there while its phase lasts, or with `keeps` from its
// first time on; what fades out after that is a picture of it, which nobody can press and no
// assistive client reads.
FocusScope {
    id: root

    required property string kind
    // The card that the screen has now, of whatever phase.
    required property var told
    property alias delegate: cards.delegate
    // An item with `mainButton`, the control that the keyboard goes to.
    readonly property var card: cards.count > 0 ? cards.itemAt(0) : null
    property bool fades: true
    // For a card that is dear to make.
    property bool keeps: false
    // Set after `content`, so that the card never shows what was told of an earlier time.
    property bool isOn: false
    // The last that was told of this phase.
    property var content: null

    signal leftWithFocus()

    function take() {
        const mine = told.kind === kind
        const left = isOn && !mine && activeFocus
        if (mine)
            content = told
        isOn = mine
        if (left)
            leftWithFocus()
    }

    implicitHeight: card?.implicitHeight ?? 0
    height: implicitHeight
    z: isOn ? 1 : 0
    onToldChanged: take()
    Component.onCompleted: take()

    Spring {
        id: fade

        target: root.isOn ? 1 : 0
        enabled: root.fades
        response: 0.5
        dampingFraction: 1
    }

    Repeater {
        id: cards

        model: root.content !== null && (root.keeps || root.isOn || fade.value > 0) ? 1 : 0
    }

    Binding {
        target: root.card
        when: root.card !== null
        property: "visible"
        value: root.isOn
    }
    Binding {
        target: root.card
        when: root.card !== null
        property: "opacity"
        value: fade.value
    }

    ShaderEffectSource {
        // The shadow of a card lies outside it.
        readonly property real room: 12

        x: -room
        y: -room
        width: parent.width + 2 * room
        height: parent.height + 2 * room
        visible: !root.isOn && fade.value > 0
        sourceItem: visible ? root.card : null
        sourceRect: Qt.rect(-room, -room, width, height)
        live: false
        opacity: fade.value
    }
}
