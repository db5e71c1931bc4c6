pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Morvane.Components
import Morvane.Theme

// Shows a text after the pointer has rested over this item, until it leaves or presses, or at once
// for the keyboard while `keyboardShown` holds. It takes no press away from what lies under it.
Item {
    id: root

    property string text
    property bool keyboardShown: false
    readonly property bool shown: text !== "" && (rested || keyboardShown)
    property bool rested: false
    // A press under it was what the pointer came for.
    property bool pressed: false

    HoverHandler {
        id: hover
        onHoveredChanged: if (!hovered) root.rested = root.pressed = false
    }
    PointHandler {
        onActiveChanged: {
            if (!active)
                return
            root.pressed = true
            root.rested = false
        }
    }

    Timer {
        running: hover.hovered && root.text !== "" && !root.rested && !root.pressed
        interval: 700
        onTriggered: root.rested = true
    }

    Repeater {
        model: root.shown ? 1 : 0

        Item {
            T.ToolTip {
                parent: root
                visible: true
                // Under the pointer, or under the item for the keyboard; inside the window.
                x: root.rested ? hover.point.position.x : 0
                y: root.rested ? hover.point.position.y + 20 : root.height + 6
                margins: 6
                padding: 5
                leftPadding: 8
                rightPadding: 8
                implicitWidth: Math.min(420, implicitContentWidth + leftPadding + rightPadding)
                implicitHeight: implicitContentHeight + topPadding + bottomPadding
                closePolicy: T.Popup.CloseOnEscape
                contentItem: Text {
                    text: Speech.shown(root.text, true)
                    textFormat: Text.PlainText
                    font.family: Theme.family
                    font.pixelSize: 12
                    wrapMode: Text.Wrap
                    // The window has no room for more.
                    elide: Text.ElideRight
                    clip: Speech.piles(root.text)
                    color: Theme.ink
                    Accessible.ignored: true
                }
                background: Rectangle {
                    radius: 6
                    color: Theme.surface
                    border.width: Theme.hairline
                    border.color: Theme.checkEdge
                }
            }
        }
    }
}
