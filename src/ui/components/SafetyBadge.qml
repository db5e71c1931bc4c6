import QtQuick
import Morvane.Art
import Morvane.Theme

// A capsule with the care an item asks for; `fill` and `ink` are names of the palette.
RoundedBox {
    id: root

    property string label
    property string fill: "regenFill"
    property string ink: "regenInk"
    property bool accessible: true

    implicitWidth: words.implicitWidth + 16
    implicitHeight: words.implicitHeight + 4
    radius: height / 2
    color: Theme.color(fill, Theme.dark)

    Words {
        id: words

        objectName: root.objectName + "Words"
        x: 8
        y: 2
        width: root.width - 16
        text: root.label
        size: 11
        weight: Font.DemiBold
        color: Theme.color(root.ink, Theme.dark)
        accessible: root.accessible
    }
}
