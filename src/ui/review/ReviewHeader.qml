import QtQuick
import Morvane.Components
import Morvane.Theme
import Morvane.Window

// The head of the review: how much was found, and the presets.
Item {
    id: root

    required property var screen

    implicitHeight: 44

    Words {
        id: title

        objectName: "reviewTitle"
        anchors { left: parent.left; leftMargin: 24; verticalCenter: parent.verticalCenter }
        text: root.screen.title
        size: 15
        weight: Font.Bold
        Accessible.role: Accessible.Heading
    }
    Words {
        objectName: "reviewFound"
        anchors { left: title.right; leftMargin: 8; baseline: title.baseline }
        text: root.screen.found
        size: 12
        color: Theme.inkFaint
    }
    SegmentedControl {
        objectName: "preset"
        anchors { right: parent.right; rightMargin: 24; verticalCenter: parent.verticalCenter }
        options: root.screen.preset.options
        selected: root.screen.preset.selected ?? -1
        onChosen: index => root.screen.press("preset", undefined, index)
    }
}
