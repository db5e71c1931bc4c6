pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Theme

// The one text of the window. It is always plain. Its size is in logical pixels and may be a half:
// a font has whole pixels only, so all text is set at double and drawn at half. (The whole sizes
// too: a scaled text comes out lighter in the software renderer, and neighbours have to match.)
Item {
    id: root

    property string text
    property real size: 13
    property int weight: Font.Normal
    property color color: Theme.ink
    property real tracking: 0
    // Added between two lines.
    property real lineSpacing: 0
    property bool mono: false
    // Whether it goes on in a next line; without it a line break shows as a mark.
    property bool wraps: false
    // Whether its lines are to be about equally long, so that no word is left alone in the last one.
    property bool balanced: false
    // 0 for no limit.
    property int maximumLines: 0
    property int elide: Text.ElideRight
    property int horizontalAlignment: Text.AlignLeft
    // False where something else shows the whole of a text that is cut.
    property bool hasToolTip: true
    // False where a control or a row of another name speaks for it.
    property bool accessible: true
    readonly property alias truncated: inner.truncated
    readonly property alias lineCount: inner.lineCount

    readonly property int factor: 2

    implicitWidth: Math.ceil(inner.implicitWidth / factor)
    implicitHeight: Math.ceil(inner.implicitHeight / factor - lineSpacing)
    baselineOffset: inner.baselineOffset / factor
    // Only what needs it: each one is drawn by itself then.
    clip: Speech.piles(root.text)

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: !root.accessible || root.text === ""

    Text {
        id: inner

        // A part of a line is left free, because lines end between words.
        readonly property real room: root.width * root.factor
        readonly property real even: implicitWidth / Math.ceil(implicitWidth / Math.max(1, room))
                                     + 3 * font.pixelSize

        x: root.horizontalAlignment === Text.AlignHCenter
           ? (root.width - width / root.factor) / 2 : 0
        width: root.balanced ? Math.min(room, even) : room
        transformOrigin: Item.TopLeft
        scale: 1 / root.factor
        text: Speech.shown(root.text, root.wraps)
        textFormat: Text.PlainText
        color: root.color
        font.family: root.mono ? Theme.monoFamily : Theme.family
        font.pixelSize: Math.round(root.size * root.factor)
        font.weight: root.weight
        font.letterSpacing: root.tracking * root.factor
        lineHeightMode: root.lineSpacing > 0 ? Text.FixedHeight : Text.ProportionalHeight
        lineHeight: root.lineSpacing > 0
                    ? Theme.lineHeight(inner.font) + root.lineSpacing * root.factor : 1
        wrapMode: root.wraps ? Text.Wrap : Text.NoWrap
        maximumLineCount: root.wraps ? (root.maximumLines > 0 ? root.maximumLines : 100000) : 1
        elide: root.elide
        horizontalAlignment: root.horizontalAlignment
        Accessible.ignored: true
    }

    // What is cut is whole in the tooltip, which few texts need.
    Repeater {
        model: inner.truncated && root.hasToolTip ? 1 : 0

        ToolTipArea {
            anchors.fill: root
            text: root.text
        }
    }
}
