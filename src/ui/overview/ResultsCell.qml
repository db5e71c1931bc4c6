import QtQuick

// One place in the grid of results.
Item {
    property int row: 0
    // What the keyboard works on here, or null.
    property Item control: null

    Accessible.role: Accessible.ListItem
}
