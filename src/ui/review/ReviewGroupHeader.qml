import QtQuick
import Morvane.Art
import Morvane.Components
import Morvane.Theme

// The head of a group: all of its items at once. The keyboard is on the head itself, as on a row.
Item {
    id: root

    required property var group
    property bool isCurrent: false

    signal toggled()
    signal moved(int step)
    signal tookKeyboard()

    function takeKeyboard() {
        root.forceActiveFocus(Qt.TabFocusReason)
    }

    activeFocusOnTab: isCurrent || activeFocus
    onActiveFocusChanged: if (activeFocus) tookKeyboard()

    Accessible.role: Accessible.ListItem
    Accessible.focusable: true
    Accessible.onPressAction: toggled()
    Accessible.name: group.label + ", " + group.count + " · " + group.size
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)
    Keys.onSpacePressed: event => {
        if (!event.isAutoRepeat)
            root.toggled()
    }

    // The strip fills the head of the card, whose corners are round above.
    Item {
        anchors.fill: parent
        clip: true

        RoundedBox {
            objectName: root.objectName + "Strip"
            width: parent.width
            height: parent.height + 20
            radius: 14
            color: Theme.rowHover
        }
    }

    CheckBox {
        id: check

        objectName: root.objectName + "Check"
        x: 14
        anchors.verticalCenter: parent.verticalCenter
        state: root.group.state
        name: root.group.label
        tabStop: false
        onToggled: root.toggled()
        onActiveFocusChanged: if (activeFocus) root.tookKeyboard()
    }
    Icon {
        id: icon

        objectName: root.objectName + "Icon"
        anchors { left: check.right; leftMargin: 12; verticalCenter: parent.verticalCenter }
        name: root.group.symbol
        size: 16
        tint: Theme.accent
    }
    Words {
        objectName: root.objectName + "Label"
        anchors { left: icon.right; leftMargin: 12; right: count.left; rightMargin: 12
                  verticalCenter: parent.verticalCenter }
        text: root.group.label
        weight: Font.DemiBold
        accessible: false
    }
    Words {
        id: count

        objectName: root.objectName + "Count"
        anchors { right: size.left; rightMargin: 12; baseline: size.baseline }
        text: root.group.count
        size: 12
        color: Theme.inkFaint
        accessible: false
    }
    Figures {
        id: size

        objectName: root.objectName + "Size"
        anchors { right: parent.right; rightMargin: 14; verticalCenter: parent.verticalCenter }
        text: root.group.size
        weight: Font.DemiBold
        accessible: false
    }
    FocusRing {
        objectName: root.objectName + "Ring"
        corner: 8
        distance: -2
    }
}
