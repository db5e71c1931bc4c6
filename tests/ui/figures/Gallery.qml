pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// The controls in states that no screen has at hand.
Rectangle {
    id: root

    function button(kind, enabled) {
        return ({label: "Scan Again", symbol: "trash", enabled: enabled, kind: kind, key: null,
                 busy: false, tooltip: null})
    }

    z: 10
    width: 1100
    height: 720
    color: Theme.surface

    Column {
        x: 20
        y: 20
        spacing: 20

        Row {
            spacing: 20

            CheckBox { objectName: "boxOff"; state: "off" }
            CheckBox { objectName: "boxOn"; state: "on" }
            CheckBox { objectName: "boxMixed"; state: "mixed" }
            CheckBox { objectName: "boxOffDisabled"; state: "off"; enabled: false }
            Toggle { objectName: "toggleOff" }
            Toggle { objectName: "toggleOn"; on: true }
            Toggle { objectName: "toggleDisabled"; on: true; enabled: false }
        }
        Row {
            spacing: 20

            CapsuleButton { objectName: "capsule"; button: root.button("bordered", true) }
            CapsuleButton { objectName: "capsuleProminent"; button: root.button("prominent", true) }
            CapsuleButton {
                objectName: "capsuleDestructive"
                button: root.button("destructive", true)
            }
            CapsuleButton { objectName: "capsuleDisabled"; button: root.button("prominent", false) }
            CapsuleButton {
                objectName: "capsuleLarge"
                large: true
                button: root.button("prominent", true)
            }
            CapsuleButton {
                objectName: "capsuleSmall"
                fontSize: 12
                button: root.button("bordered", true)
            }
        }
        Row {
            spacing: 20

            TextButton { objectName: "plain"; button: root.button("plain", true) }
            TextButton { objectName: "link"; button: root.button("link", true) }
            TextButton { objectName: "plainDisabled"; button: root.button("plain", false) }
        }
        Row {
            spacing: 20

            ProgressTrack { objectName: "trackBelow"; width: 200; fraction: -1 }
            ProgressTrack { objectName: "trackPart"; width: 200; height: 8; fraction: 0.25 }
            ProgressTrack { objectName: "trackAbove"; width: 200; fraction: 2 }
            ProgressTrack {
                objectName: "trackTinted"
                width: 200
                fraction: 0.5
                tint: Theme.diskMedia
            }
        }
        Row {
            spacing: 20

            Icon { objectName: "icon"; name: "folder"; size: 20 }
            Icon { objectName: "brandIcon"; name: "morvane"; size: 24; tint: Theme.accent }
            IconTile { objectName: "tile"; icon: "folder" }
            IconTile {
                objectName: "tileWarm"
                icon: "folder"
                tint: Theme.warmInk
                background: Theme.warm
            }
            Hatching { objectName: "hatching"; width: 40; height: 20 }
            Spinner { objectName: "spinner" }
            Hairline { objectName: "line" }
            Hairline { objectName: "upright"; vertical: true; height: 30 }
        }
        Row {
            spacing: 20

            SegmentedControl {
                objectName: "choice"
                options: ["One", "Two", "Three"]
                selected: 1
            }
            SegmentedControl { objectName: "choiceNone"; options: ["One", "Two"]; selected: 7 }
            SegmentedControl {
                objectName: "choiceDisabled"
                options: ["One", "Two"]
                selected: 0
                enabled: false
            }
        }
        FlowLayout { objectName: "flowEmpty"; spacing: 20; lineSpacing: 6 }
        FlowLayout {
            objectName: "flow"
            width: 100
            spacing: 20
            lineSpacing: 6

            Item { objectName: "flow0"; implicitWidth: 40; implicitHeight: 10; width: 40; height: 10 }
            Item { objectName: "flow1"; implicitWidth: 40; implicitHeight: 30; width: 40; height: 30 }
            Item { objectName: "flow2"; implicitWidth: 150; implicitHeight: 8; width: 150; height: 8 }
            Item { objectName: "flow3"; implicitWidth: 30; implicitHeight: 8; width: 30; height: 8 }
        }
        SelectionFooter {
            objectName: "footer"
            width: 600
            size: "3 MB"
            count: "3 items selected"
            note: "A note."
            showsDivider: false
        }
    }
}
