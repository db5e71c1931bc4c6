import QtQuick
import Morvane.Components
import Morvane.Theme

// Marks what the keyboard works on. It lies around the item it fills, at a distance, and stands in
// the accent, which has more than 3 to 1 on every ground of the window.
Rectangle {
    id: root

    // Whether the item has the focus; the ring shows while the user is on the keyboard.
    property bool shown: parent ? parent.activeFocus : false
    // From the item's edge to the ring's inner edge; negative lies inside.
    property real distance: 1
    // The radius of the item's own corners.
    property real corner: 6

    anchors.fill: parent
    anchors.margins: -(distance + border.width)
    radius: corner + distance + border.width
    color: Theme.clear
    border.width: 2
    border.color: Theme.accent
    // In this order, so that the mode is followed before the first focus comes.
    visible: InputMode.keyboard && shown
}
