import QtQuick
import Morvane.Theme

// A divider of one physical pixel. It is not smoothed, so it fills one row of pixels wherever it
// comes to lie.
Rectangle {
    property bool vertical: false

    implicitWidth: vertical ? Theme.hairline : 100
    implicitHeight: vertical ? 100 : Theme.hairline
    antialiasing: false
    color: Theme.hairlineColor
}
