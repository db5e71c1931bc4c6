import QtQuick
import Morvane.Theme

// A button of words or a symbol alone, for the kinds "plain" and "link".
Pressable {
    id: root

    // `label`, `symbol`, `enabled`, `kind`, `key`, `busy`, `tooltip`, as the screen has them.
    property var button: null
    property real fontSize: 12
    property int fontWeight: Font.Normal
    property color color: link ? Theme.accent : Theme.inkSoft
    // A button of a symbol alone: its label is its name only.
    property bool symbolOnly: false

    readonly property bool link: button?.kind === "link"
    readonly property bool busy: button?.busy ?? false
    readonly property color ink: enabled ? color : Theme.inkFaint

    signal pressed()

    enabled: button?.enabled ?? false
    name: button?.label ?? ""
    tooltip: button?.tooltip ?? ""
    implicitWidth: content.implicitWidth
    implicitHeight: Math.max(16, content.implicitHeight)
    baselineOffset: content.y + words.y + words.baselineOffset
    ringCorner: 4
    ringDistance: 2
    onActivated: pressed()

    Row {
        id: content

        anchors.verticalCenter: parent.verticalCenter
        spacing: Math.round(root.fontSize * 0.3)
        opacity: root.down ? 0.6 : 1

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.busy
            size: 14
        }

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: name !== "" && !root.busy
            name: root.button?.symbol ?? ""
            size: Math.round(root.fontSize * 1.25)
            tint: root.ink
        }

        Words {
            id: words

            objectName: root.objectName + "Words"
            visible: !root.symbolOnly
            text: root.button?.label ?? ""
            size: root.fontSize
            weight: root.fontWeight
            color: root.ink
            accessible: false
        }
    }

    HoverHandler {
        enabled: root.link && root.enabled
        cursorShape: Qt.PointingHandCursor
    }

    // A link is underlined under the pointer, a plain one stands on a ground.
    Rectangle {
        objectName: root.objectName + "Shade"
        anchors.fill: parent
        anchors.margins: -4
        z: -1
        radius: 5
        visible: root.hovered && !root.link
        color: Theme.rowHover
    }

    Hairline {
        objectName: root.objectName + "Underline"
        x: content.x + words.x
        y: content.y + words.y + words.baselineOffset + 2
        width: words.width
        visible: root.hovered && root.link && words.visible
        color: root.ink
    }
}
