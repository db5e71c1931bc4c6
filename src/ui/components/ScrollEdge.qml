import QtQuick
import Morvane.Components

// The line under the head of a screen, there while what scrolls below it goes on above.
Hairline {
    property Flickable scroll: null

    parent: scroll
    anchors { left: parent?.left; right: parent?.right; top: parent?.top }
    opacity: Math.max(0, Math.min(1, (scroll?.contentY ?? 0) / 8))
    visible: opacity > 0
}
