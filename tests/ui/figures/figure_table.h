#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <vector>

namespace morvane {

// One line of the table: what one property of one control is on one screen. It has a value, which
// is a number, "true", "false" or a text, or a colour for each appearance.
//
// A control is an item, a window or another object of that objectName; "theme" is the theme.
// A property of one word is read as it is, "border.width" too. "absent" says that the control is
// not on view. A property of more words is a distance in logical pixels: "beside NAME" from that
// control's right edge, "below NAME" from its lower edge, "left in NAME" and its like from the edge
// around it, "centre in NAME" and "middle in NAME" from its centre across and down, "baseline of
// NAME" from its baseline.
struct Figure {
    int line = 0;
    QString screen;
    QString control;
    QString property;
    QString value;
    QString light;
    QString dark;

    [[nodiscard]] bool isColor() const { return value.isEmpty(); }
    [[nodiscard]] bool isDistance() const { return property.contains(u' '); }
    [[nodiscard]] bool isAbsence() const { return property == QLatin1String("absent"); }
};

// The whole table; a line that has not six cells comes out without a screen.
[[nodiscard]] const std::vector<Figure>& figures();

// The names of the screens of the table, in its order.
[[nodiscard]] std::vector<std::string> figureScreens();

// "#CA3500" or "#CA3500 0.09".
[[nodiscard]] QColor colorOf(const QString& text);

// Whether the two are one colour but for rounding.
[[nodiscard]] bool isNear(const QColor& one, const QColor& other);

}  // namespace morvane
