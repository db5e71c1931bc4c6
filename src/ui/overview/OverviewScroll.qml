import QtQuick
import Morvane.Components

// A column that scrolls where the window is too low for it, and follows the keyboard.
Flickable {
    id: root

    readonly property Item focused: Window.activeFocusItem

    function holds(item: Item): bool {
        for (let each = item; each; each = each.parent) {
            if (each === contentItem)
                return true
        }
        return false
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    onFocusedChanged: {
        if (!focused || !InputMode.keyboard || !holds(focused))
            return
        const top = focused.mapToItem(contentItem, 0, 0).y
        const bottom = top + focused.height
        if (top - 12 < contentY)
            contentY = Math.max(0, top - 12)
        else if (bottom + 12 > contentY + height)
            contentY = Math.min(Math.max(0, contentHeight - height), bottom + 12 - height)
    }

    ScrollEdge { scroll: root }
    ScrollMark { scroll: root }
}
