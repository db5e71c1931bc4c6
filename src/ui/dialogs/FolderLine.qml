import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// A folder to look into or to choose.
Item {
    id: root

    required property string label
    required property bool chosen
    required property int index

    signal pressed(int modifiers)
    signal entered()

    objectName: "folder" + index
    implicitHeight: 28
    Accessible.role: Accessible.ListItem
    Accessible.name: root.label
    Accessible.selectable: true
    Accessible.selected: root.chosen
    Accessible.focusable: true
    Accessible.onPressAction: root.pressed(Qt.NoModifier)

    Rectangle {
        anchors { fill: parent; leftMargin: 6; rightMargin: 6; topMargin: 1; bottomMargin: 1 }
        radius: 6
        color: root.chosen ? Theme.accentTintStrong : hover.hovered ? Theme.rowHover : Theme.clear

        FocusRing {
            shown: root.activeFocus
            distance: -2
        }
    }
    Symbol {
        id: symbol

        x: 16
        anchors.verticalCenter: parent.verticalCenter
        name: "folder"
        size: 13
        color: Theme.accent
    }
    Words {
        anchors { left: parent.left; leftMargin: 42; right: mark.left; rightMargin: 10
                  verticalCenter: parent.verticalCenter }
        text: root.label
        elide: Text.ElideMiddle
        accessible: false
    }
    HoverHandler { id: hover }
    MouseArea {
        anchors.fill: parent
        onPressed: mouse => root.pressed(mouse.modifiers)
        onDoubleClicked: root.entered()
    }
    // Into the folder with one click.
    Item {
        id: mark

        anchors { right: parent.right; rightMargin: 8; top: parent.top; bottom: parent.bottom }
        width: 26

        Symbol {
            anchors.centerIn: parent
            name: "chevron.right"
            size: 9
            color: hover.hovered ? Theme.inkSoft : Theme.inkFaint
        }
        MouseArea {
            anchors.fill: parent
            onClicked: root.entered()
        }
    }
}
