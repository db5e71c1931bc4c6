import QtQuick
import Morvane.Components
import Morvane.Theme

// A line of text whose figures keep their places, and roll when they change if `animated` is set.
FigurePainter {
    id: root

    property bool accessible: true

    family: Theme.family
    color: Theme.ink

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: !root.accessible || root.text === ""
}
