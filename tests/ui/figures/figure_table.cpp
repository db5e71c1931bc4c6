#include "ui/figures/figure_table.h"

#include <QFile>
#include <QStringList>
#include <algorithm>
#include <cstdlib>

namespace morvane {
namespace {

std::vector<Figure> readFigures() {
    QFile file(QStringLiteral(MORVANE_FIGURES));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    std::vector<Figure> found;
    file.readLine();
    for (int line = 2; !file.atEnd(); ++line) {
        const QStringList cells = QString::fromUtf8(file.readLine()).chopped(1).split(u'\t');
        if (cells.size() == 6) {
            found.push_back({line, cells[0], cells[1], cells[2], cells[3], cells[4], cells[5]});
        } else {
            found.push_back({.line = line});
        }
    }
    return found;
}

}  // namespace

const std::vector<Figure>& figures() {
    static const std::vector<Figure> all = readFigures();
    return all;
}

std::vector<std::string> figureScreens() {
    std::vector<std::string> names;
    for (const Figure& figure : figures()) {
        const std::string name = figure.screen.toStdString();
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    return names;
}

QColor colorOf(const QString& text) {
    const QStringList parts = text.split(u' ');
    QColor color(parts[0]);
    if (parts.size() > 1) color.setAlphaF(parts[1].toFloat());
    return color;
}

bool isNear(const QColor& one, const QColor& other) {
    const auto apart = [](int a, int b) { return std::abs(a - b) > 1; };
    if (one.alpha() == 0 && other.alpha() == 0) return true;
    return !apart(one.red(), other.red()) && !apart(one.green(), other.green()) &&
           !apart(one.blue(), other.blue()) && !apart(one.alpha(), other.alpha());
}

}  // namespace morvane
