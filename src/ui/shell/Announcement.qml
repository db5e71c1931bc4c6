import QtQuick

// What a screen reader is told when it changes. Always there, though nobody sees it.
Item {
    property string text

    width: 1
    height: 1
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
}
