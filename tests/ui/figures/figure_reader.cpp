#include "ui/figures/figure_reader.h"

#include <QGuiApplication>
#include <QQmlProperty>
#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace morvane {
namespace {

// The windows on view, the main one first.
std::vector<QQuickWindow*> windowsOnView(QQuickWindow& main) {
    std::vector<QQuickWindow*> windows{&main};
    for (QWindow* each : QGuiApplication::topLevelWindows()) {
        auto* const window = qobject_cast<QQuickWindow*>(each);
        if (window != nullptr && window != &main && window->isVisible()) windows.push_back(window);
    }
    return windows;
}

// What belongs to an item on view without being one: a spring, a timer.
QObject* helperBelow(const QQuickItem& above, const QString& name) {
    for (QObject* child : above.children()) {
        if (qobject_cast<QQuickItem*>(child) == nullptr && child->objectName() == name)
            return child;
    }
    for (const QQuickItem* child : above.childItems()) {
        if (!child->isVisible()) continue;
        if (QObject* found = helperBelow(*child, name)) return found;
    }
    return nullptr;
}

bool isBelow(const QQuickItem& above, const QString& name) {
    const QList<QQuickItem*> items = above.childItems();
    return std::any_of(items.begin(), items.end(), [&](const QQuickItem* each) {
        return each->objectName() == name || isBelow(*each, name);
    });
}

std::string differing(const QString& found, const QString& wanted) {
    return (found + QStringLiteral(" is not ") + wanted).toStdString();
}

bool isOff(double found, double wanted, double tolerance) {
    return !(std::abs(found - wanted) <= tolerance);
}

}  // namespace

QObject* FigureReader::thing(const QString& name) {
    if (name == QLatin1String("theme")) return &theme();
    for (QQuickWindow* const each : windowsOnView(window())) {
        if (each->objectName() == name) return each;
        if (QQuickItem* const found = find(name, *each)) return found;
        if (QObject* const found = helperBelow(*each->contentItem(), name)) return found;
    }
    return nullptr;
}

bool FigureReader::isKnown(const QString& name) {
    const std::vector<QQuickWindow*> windows = windowsOnView(window());
    return std::any_of(
               windows.begin(), windows.end(),
               [&](const QQuickWindow* each) { return isBelow(*each->contentItem(), name); }) ||
           std::any_of(figures().begin(), figures().end(), [&](const Figure& figure) {
               return figure.control == name && !figure.isAbsence();
           });
}

std::optional<FigureReader::Place> FigureReader::placeOf(const QString& name) {
    QObject* const found = thing(name);
    if (const auto* window = qobject_cast<QQuickWindow*>(found))
        return Place{QRectF(0, 0, window->width(), window->height()), 0};
    const auto* item = qobject_cast<QQuickItem*>(found);
    if (item == nullptr) return {};
    const QRectF area = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    return Place{area, area.top() + item->baselineOffset()};
}

std::string FigureReader::complaintOfDistance(const Figure& figure) {
    const QString edge = figure.property.section(u' ', 0, 0);
    const QString middle = figure.property.section(u' ', 1, 1);
    const bool isInOrOf = middle == QLatin1String("in") || middle == QLatin1String("of");
    const QString other = figure.property.section(u' ', isInOrOf ? 2 : 1);
    const std::optional<Place> one = placeOf(figure.control);
    const std::optional<Place> two = placeOf(other);
    if (!one) return "no " + figure.control.toStdString() + " on view";
    if (!two) return "no " + other.toStdString() + " on view";
    const QRectF& here = one->area;
    const QRectF& there = two->area;
    const std::map<QString, double> distances{
        {QStringLiteral("beside"), here.left() - there.right()},
        {QStringLiteral("below"), here.top() - there.bottom()},
        {QStringLiteral("left"), here.left() - there.left()},
        {QStringLiteral("right"), there.right() - here.right()},
        {QStringLiteral("top"), here.top() - there.top()},
        {QStringLiteral("bottom"), there.bottom() - here.bottom()},
        {QStringLiteral("centre"), here.center().x() - there.center().x()},
        {QStringLiteral("middle"), here.center().y() - there.center().y()},
        {QStringLiteral("baseline"), one->baseline - two->baseline}};
    const auto found = distances.find(edge);
    if (found == distances.end()) return "no distance of that name";
    // What is centred stands on a whole pixel.
    const bool isCentred = edge == QLatin1String("centre") || edge == QLatin1String("middle");
    if (!isOff(found->second, figure.value.toDouble(), isCentred ? 0.5 : 0.01)) return {};
    return differing(QString::number(found->second), figure.value);
}

std::string FigureReader::complaintOfProperty(const Figure& figure) {
    QObject* const control = thing(figure.control);
    if (figure.isAbsence()) {
        if (control != nullptr) return "it is on view";
        return isKnown(figure.control) ? "" : "nothing has that name";
    }
    if (control == nullptr) return "not on view";
    const QVariant found = QQmlProperty::read(control, figure.property);
    if (!found.isValid()) return "no such property";
    if (figure.isColor()) {
        const QColor wanted = colorOf(theme().dark() ? figure.dark : figure.light);
        const auto color = found.value<QColor>();
        if (found.canConvert<QColor>() && isNear(color, wanted)) return {};
        return differing(color.name(QColor::HexArgb), wanted.name(QColor::HexArgb));
    }
    if (found.typeId() == QMetaType::Bool || found.typeId() == QMetaType::QString) {
        const QString text = found.toString();
        return text == figure.value ? std::string() : differing(text, figure.value);
    }
    bool isNumber = false;
    const double number = found.toDouble(&isNumber);
    if (isNumber && !isOff(number, figure.value.toDouble(), 0.001)) return {};
    return differing(QString::number(number), figure.value);
}

std::string FigureReader::complaint(const Figure& figure) {
    const std::string said =
        figure.isDistance() ? complaintOfDistance(figure) : complaintOfProperty(figure);
    if (said.empty()) return {};
    return "line " + std::to_string(figure.line) + ": " + figure.screen.toStdString() + ", " +
           figure.control.toStdString() + ", " + figure.property.toStdString() + ": " + said;
}

}  // namespace morvane
