import QtQuick
import Morvane.Art
import Morvane.Theme

// A symbol on a small rounded ground.
RoundedBox {
    id: root

    property string icon
    property color tint: Theme.accent
    property color background: Theme.accentTint

    implicitWidth: 30
    implicitHeight: 30
    radius: 9
    color: background

    Icon {
        objectName: root.objectName + "Icon"
        anchors.centerIn: parent
        name: root.icon
        size: 17
        tint: root.tint
    }
}
