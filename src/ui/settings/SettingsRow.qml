import QtQuick
import Morvane.Components

// A row of a list in the form. The arrows go from row to row, and within the row to its buttons.
Item {
    id: root

    property string name
    property bool tabStop: false
    property bool isFirst: false
    property bool isLast: false
    // The buttons that can be pressed now, from the left.
    property list<Item> buttons

    signal moved(int step)
    signal movedToEnd(bool last)
    signal tookKeyboard(int part)
    // Delete was pressed on the row.
    signal erased()

    // The row itself for 0 and for a button that is not there.
    function takeKeyboard(part: int) {
        const shown = shownButtons()
        const item = part > 0 && shown.length > 0 ? shown[Math.min(part, shown.length) - 1] : root
        item.forceActiveFocus(Qt.TabFocusReason)
    }

    function shownButtons(): var {
        const shown = []
        for (let each = 0; each < buttons.length; ++each) {
            if (buttons[each].visible && buttons[each].enabled)
                shown.push(buttons[each])
        }
        return shown
    }

    function partWithKeyboard(): int {
        return shownButtons().findIndex(button => button.activeFocus) + 1
    }

    function tellKeyboard() {
        const part = partWithKeyboard()
        if (activeFocus || part > 0)
            tookKeyboard(part)
    }

    // Each button calls this when it gets or loses the keyboard; the row has it once a button that
    // had it cannot be pressed any more.
    function followButton(button: Item) {
        if (button.activeFocus)
            tellKeyboard()
        else if (!button.enabled)
            takeKeyboard(0)
    }

    activeFocusOnTab: tabStop
    onActiveFocusChanged: tellKeyboard()
    Keys.onUpPressed: moved(-1)
    Keys.onDownPressed: moved(1)
    Keys.onLeftPressed: takeKeyboard(partWithKeyboard() - 1)
    Keys.onRightPressed: takeKeyboard(partWithKeyboard() + 1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home || event.key === Qt.Key_End)
            movedToEnd(event.key === Qt.Key_End)
        else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)
            erased()
        else
            return
        event.accepted = true
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.focusable: true

    Hairline {
        objectName: root.objectName + "Line"
        anchors { left: parent.left; leftMargin: 16; right: parent.right; top: parent.top }
        visible: !root.isFirst
    }
    FocusRing {
        objectName: root.objectName + "Ring"
        distance: -4
        corner: 8
    }
}
