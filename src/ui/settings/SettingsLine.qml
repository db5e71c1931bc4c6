import QtQuick
import Morvane.Components
import Morvane.Theme

// A line of the form: what it is about, more about it below, and its control at the end.
Item {
    id: root

    property string label
    property color ink: Theme.ink
    property bool isFirst: false
    // Whether the words stand for themselves; else the control has them for its name.
    property bool spoken: false
    default property alias control: end.data
    property alias more: words.data

    implicitHeight: Math.max(44, words.height + 22, end.height + 16)

    Hairline {
        objectName: root.objectName + "Line"
        anchors { left: parent.left; leftMargin: 16; right: parent.right; top: parent.top }
        visible: !root.isFirst
    }
    Column {
        id: words

        objectName: root.objectName + "Words"
        anchors { left: parent.left; leftMargin: 16; verticalCenter: parent.verticalCenter }
        width: root.width - 32 - (end.width > 0 ? end.width + 16 : 0)
        spacing: 4

        Words {
            objectName: root.objectName + "Label"
            width: parent.width
            text: root.label
            color: root.ink
            wraps: true
            accessible: root.spoken
        }
    }
    Row {
        id: end

        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
    }
}
