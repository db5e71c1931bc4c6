pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Theme

// Every control in each of its states, to look at.
Rectangle {
    id: root

    property var kinds: ["prominent", "bordered", "destructive"]

    width: 760
    height: 620
    color: Theme.surface

    Column {
        x: 24
        y: 20
        spacing: 16

        Row {
            spacing: 12
            SafetyBadge { label: "Safe to sweep"; fill: "safeFill"; ink: "safeInk" }
            SafetyBadge { label: "Will regenerate"; fill: "regenFill"; ink: "regenInk" }
            SafetyBadge { label: "Review first"; fill: "reviewFill"; ink: "reviewInk" }
            CheckBox { state: "on" }
            CheckBox { state: "off" }
            CheckBox { state: "mixed" }
            CheckBox { state: "on"; enabled: false }
            CheckBox { state: "off"; enabled: false }
            Toggle { on: true }
            Toggle { on: false }
            Toggle { on: true; enabled: false }
            Spinner {}
            Spinner { tint: Theme.accent }
        }

        Row {
            spacing: 12
            SegmentedControl { options: ["Safe items", "All", "None"]; selected: 0 }
            SegmentedControl { options: ["Off", "Weekly", "Monthly"]; selected: -1 }
            SegmentedControl { options: ["Size", "Name"]; selected: 1; enabled: false }
        }

        Repeater {
            model: [false, true]
            Row {
                id: sizes
                required property bool modelData
                spacing: 10
                Repeater {
                    model: root.kinds
                    Row {
                        id: kind
                        required property string modelData
                        spacing: 10
                        CapsuleButton {
                            large: sizes.modelData
                            button: ({label: "Scan Again", enabled: true, kind: kind.modelData})
                        }
                        CapsuleButton {
                            large: sizes.modelData
                            button: ({label: "Delete", symbol: "trash", enabled: false,
                                      kind: kind.modelData})
                        }
                    }
                }
            }
        }

        Row {
            spacing: 16
            CapsuleButton {
                large: true
                glowing: true
                fontSize: 16
                paddingY: 4
                paddingX: 0
                button: ({label: "Sweep", symbol: "morvane", enabled: true, kind: "prominent"})
            }
            CapsuleButton {
                large: true
                button: ({label: "Move to Trash", symbol: "trash", enabled: true, kind: "prominent"})
            }
            CapsuleButton {
                large: true
                button: ({label: "Busy", enabled: false, kind: "prominent", busy: true})
            }
            CapsuleButton {
                fontSize: 12
                button: ({label: "Reveal in Finder", enabled: true})
            }
            CapsuleButton {
                large: true
                busyBeside: true
                button: ({label: "Uninstall Completely", enabled: false, kind: "prominent", busy: true})
            }
        }

        Row {
            spacing: 20
            TextButton { button: ({label: "Allow…", enabled: true, kind: "link"}) }
            TextButton { button: ({label: "Show in Finder", enabled: true, kind: "plain"}) }
            TextButton { button: ({label: "Add Folder…", symbol: "plus", enabled: true, kind: "plain"}) }
            TextButton { button: ({label: "Remove", enabled: false, kind: "plain"}) }
            TextButton { symbolOnly: true; button: ({label: "Scan apps again", symbol: "arrow.clockwise", enabled: true, kind: "plain"}) }
        }

        Card {
            width: 712
            height: 110
            Column {
                anchors.fill: parent
                anchors.margins: 16
                spacing: 8
                Row {
                    spacing: 10
                    IconTile { icon: "trash" }
                    Words { text: "Crumbs"; weight: Font.DemiBold; anchors.verticalCenter: parent.verticalCenter }
                    Figures { text: "1.28 GB"; size: 26; weight: Font.Bold; tracking: -0.5; anchors.verticalCenter: parent.verticalCenter }
                    Words { width: 120; text: "A long name that is cut at the end"; anchors.verticalCenter: parent.verticalCenter }
                    Words { width: 150; mono: true; size: 11; color: Theme.inkFaint; elide: Text.ElideMiddle; text: "~/Library/Caches/com.example.app"; anchors.verticalCenter: parent.verticalCenter }
                }
                ProgressTrack { width: 680; fraction: 0.4 }
                ProgressTrack { width: 680; height: 4; fraction: 0.02 }
                Hairline { width: 680 }
            }
        }

        FlowLayout {
            width: 712
            spacing: 20
            lineSpacing: 6
            Repeater {
                model: [10, 11, 11.5, 12, 12.5, 13, 13.5, 14, 15]
                Words {
                    required property real modelData
                    size: modelData
                    text: "Size " + modelData + " Safe items"
                }
            }
        }

        Words {
            width: 420
            wraps: true
            lineSpacing: 3
            size: 14
            color: Theme.inkSoft
            text: "Morvane looks for caches, leftovers and forgotten files, then explains each one. Nothing is removed until you say so."
        }
    }

    SelectionFooter {
        width: root.width
        anchors.bottom: parent.bottom
        size: "1.28 GB"
        count: "3 items selected"
        note: "Goes to the Trash. Nothing is permanently deleted."
        CapsuleButton {
            large: true
            button: ({label: "Move to Trash", symbol: "trash", enabled: true, kind: "prominent"})
        }
    }
}
