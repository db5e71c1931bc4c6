pragma ComponentBehavior: Bound

import QtQuick
import Morvane.Components
import Morvane.Window

// The folders that lie in the one on view.
ListView {
    id: root

    required property FolderChooser chooser

    function keyed(event) {
        const page = Math.max(1, Math.floor(height / 28) - 1)
        const all = root.count
        switch (event.key) {
        case Qt.Key_Up:
            if (event.modifiers & Qt.ControlModifier)
                return chooser.goUp()
            return chooser.step(-1, event.modifiers)
        case Qt.Key_Down:
            if (event.modifiers & Qt.ControlModifier)
                return chooser.enter(currentIndex)
            return chooser.step(1, event.modifiers)
        case Qt.Key_PageUp:
            return chooser.step(-page, event.modifiers)
        case Qt.Key_PageDown:
            return chooser.step(page, event.modifiers)
        case Qt.Key_Home:
            return chooser.step(-all, event.modifiers)
        case Qt.Key_End:
            return chooser.step(all, event.modifiers)
        case Qt.Key_Right:
            return chooser.enter(currentIndex)
        case Qt.Key_Left:
        case Qt.Key_Backspace:
            return chooser.goUp()
        case Qt.Key_Space:
            return chooser.toggleCurrent()
        case Qt.Key_A:
            if (event.modifiers & Qt.ControlModifier)
                return chooser.chooseAll()
        }
        event.accepted = false
    }

    model: chooser.rows
    currentIndex: chooser.rows.current
    keyNavigationEnabled: false
    highlightMoveDuration: 0
    boundsBehavior: Flickable.StopAtBounds
    topMargin: 6
    bottomMargin: 6
    clip: true
    activeFocusOnTab: true
    Keys.onPressed: event => {
        event.accepted = true
        keyed(event)
    }

    // It has the keyboard together with its line, and is told of by what is around it; without a
    // line it has the keyboard alone.
    Accessible.role: Accessible.List
    Accessible.name: chooser.location
    Accessible.ignored: count > 0

    delegate: FolderLine {
        // Beside the mark of how far the list is scrolled.
        width: root.width - (root.contentHeight > root.height ? 8 : 0)
        onPressed: modifiers => {
            root.forceActiveFocus(Qt.MouseFocusReason)
            root.chooser.press(index, modifiers)
        }
        onEntered: root.chooser.enter(index)
    }

    ScrollMark { scroll: root }
    FocusRing {
        shown: root.activeFocus && root.count === 0
        distance: -4
        corner: 12
    }
}
