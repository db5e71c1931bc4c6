pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Theme

// A named symbol in a square; "morvane" is the brand's own.
Item {
    id: root

    property string name
    property real size: 16
    property color tint: Theme.ink
    readonly property bool brand: name === "morvane"

    implicitWidth: size
    implicitHeight: size

    Symbol {
        objectName: root.objectName + "Symbol"
        anchors.centerIn: parent
        visible: !root.brand && root.name !== ""
        name: root.brand ? "" : root.name
        size: root.size * 0.85
        color: root.tint
    }

    Repeater {
        model: root.brand ? 1 : 0

        SweepGlyph {
            objectName: root.objectName + "Glyph"
            anchors.centerIn: root
            size: root.size
            lineWidth: 1.8
            color: root.tint
        }
    }
}
