import QtQuick
import Morvane.Art
import Morvane.Theme

// What a slice of the disk is filled with, in the bar and in the legend alike.
Item {
    id: root

    property var segment: null
    property real radius: 0
    readonly property string kind: segment?.id ?? ""
    readonly property color tint: Theme.color(segment?.color ?? "diskOther", Theme.dark)

    RoundedBox {
        anchors.fill: parent
        visible: !hatching.visible && !measuring.visible
        radius: root.radius
        color: root.tint
    }
    MeasuringFill {
        id: measuring

        objectName: root.objectName.replace("Fill", "Measuring")
        anchors.fill: parent
        visible: root.kind === "pending"
        radius: root.radius
        tint: root.tint
    }
    Hatching {
        id: hatching

        objectName: root.objectName.replace("Fill", "Hatching")
        anchors.fill: parent
        visible: root.kind === "purgeable"
        color: root.tint
        spacing: 5
        lineWidth: 2
    }
}
