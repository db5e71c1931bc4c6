#include <QColor>
#include <QFile>
#include <cmath>
#include <map>

#include "ui/window_test.h"

namespace morvane {
namespace {

// One line of the table: what one property of one control is on one screen. A property of two
// words and more is a distance in logical pixels, "beside NAME" from that control's right edge,
// "below NAME" from its lower edge, "left in NAME" and its like from the edge around it,
// "baseline of NAME" from its baseline.
struct Figure {
    int line = 0;
    QString screen;
    QString control;
    QString property;
    QString value;
    QString light;
    QString dark;
};

std::vector<Figure> readFigures() {
    QFile file(QStringLiteral(MORVANE_FIGURES));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    std::vector<Figure> figures;
    file.readLine();
    for (int line = 2; !file.atEnd(); ++line) {
        const QStringList cells = QString::fromUtf8(file.readLine()).chopped(1).split(u'\t');
        if (cells.size() != 6) {
            ADD_FAILURE() << "line " << line << " has " << cells.size() << " cells";
            continue;
        }
        figures.push_back({line, cells[0], cells[1], cells[2], cells[3], cells[4], cells[5]});
    }
    return figures;
}

// "#CA3500" or "#CA3500 0.09".
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

class Figures : public WindowTest {
protected:
    // Brings a screen on view in the state that the table calls by this name.
    void enter(const QString& screen) {
        const std::map<QString, ScanPhase> phases{
            {QStringLiteral("overview.idle"), ScanPhase::idle},
            {QStringLiteral("overview.scanning"), ScanPhase::scanning},
            {QStringLiteral("overview.done"), ScanPhase::done},
            {QStringLiteral("overview.success"), ScanPhase::success},
            {QStringLiteral("overview.empty"), ScanPhase::empty}};
        fillBar();
        const auto phase = phases.find(screen);
        if (phase != phases.end()) {
            show(phase->second);
        } else if (screen == QLatin1String("overview.note")) {
            state->fullDiskAccess = PermissionStatus::denied;
            DiskUsage disk = *state->disk;
            disk.isComplete = true;
            state->disk = disk;
            settle();
        } else {
            ADD_FAILURE() << "no screen " << qPrintable(screen);
        }
    }

    double distance(const QString& control, const QString& relation) {
        const QString other = relation.section(u' ', -1);
        const QString edge = relation.section(u' ', 0, 0);
        const QRectF here = place(control);
        const QRectF there = place(other);
        if (edge == QLatin1String("beside")) return here.left() - there.right();
        if (edge == QLatin1String("below")) return here.top() - there.bottom();
        if (edge == QLatin1String("left")) return here.left() - there.left();
        if (edge == QLatin1String("right")) return there.right() - here.right();
        if (edge == QLatin1String("top")) return here.top() - there.top();
        if (edge == QLatin1String("bottom")) return there.bottom() - here.bottom();
        if (edge == QLatin1String("baseline")) {
            return here.top() + item(control).baselineOffset() - there.top() -
                   item(other).baselineOffset();
        }
        ADD_FAILURE() << "no distance " << qPrintable(relation);
        return std::nan("");
    }

    void check(const Figure& figure) {
        SCOPED_TRACE(testing::Message()
                     << "line " << figure.line << ": " << qPrintable(figure.screen) << ", "
                     << qPrintable(figure.control) << ", " << qPrintable(figure.property));
        if (figure.property.contains(u' ')) {
            EXPECT_NEAR(distance(figure.control, figure.property), figure.value.toDouble(), 0.01);
            return;
        }
        const QVariant found = item(figure.control).property(qPrintable(figure.property));
        ASSERT_TRUE(found.isValid());
        if (figure.value.isEmpty()) {
            const QColor wanted = colorOf(theme().dark() ? figure.dark : figure.light);
            EXPECT_TRUE(isNear(found.value<QColor>(), wanted))
                << qPrintable(found.value<QColor>().name(QColor::HexArgb)) << " is not "
                << qPrintable(wanted.name(QColor::HexArgb));
        } else if (found.typeId() == QMetaType::Bool) {
            EXPECT_EQ(found.toBool(), figure.value == QLatin1String("true"));
        } else {
            EXPECT_NEAR(found.toDouble(), figure.value.toDouble(), 0.001);
        }
    }
};

TEST_F(Figures, HoldInTheLiveSceneOfEveryScreenInBothAppearances) {
    const std::vector<Figure> figures = readFigures();
    ASSERT_GE(figures.size(), 250U);
    QString screen;
    for (const bool dark : {false, true}) {
        theme().setDark(dark);
        for (const Figure& figure : figures) {
            if (figure.screen != screen) {
                screen = figure.screen;
                enter(screen);
            }
            check(figure);
        }
    }
}

}  // namespace
}  // namespace morvane
