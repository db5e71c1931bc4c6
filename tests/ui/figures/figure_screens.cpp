#include "ui/figures/figure_screens.h"

#include <QTest>

namespace morvane {

void FigureScreens::TearDown() {
    // Away from the control, so that letting go presses nothing.
    if (holds_) {
        QTest::mouseMove(&window(), {1, 1});
        QTest::mouseRelease(&window(), Qt::LeftButton, Qt::NoModifier, {1, 1});
    }
    FigureReader::TearDown();
    chooser_.reset();
    if (!scope_) return;
    scope_->cancel();
    awaitScope();
    scope_.reset();
}

void FigureScreens::awaitScope() {
    EXPECT_TRUE(loop.runUntil([this] { return scope_->isEmpty(); }));
}

void FigureScreens::enter(const QString& screen) {
    for (const States& states : {overviewStates(), shellStates(), reviewStates(), settingsStates(),
                                 dialogStates(), componentStates()}) {
        const auto found = states.find(screen);
        if (found == states.end()) continue;
        found->second();
        settle();
        return;
    }
    ADD_FAILURE() << "no screen " << qPrintable(screen);
}

void FigureScreens::hover(const QString& control) {
    QTest::mouseMove(&window(), place(control).center().toPoint());
}

void FigureScreens::hold(const QString& control) {
    hover(control);
    QTest::mousePress(&window(), Qt::LeftButton, Qt::NoModifier, place(control).center().toPoint());
    holds_ = true;
}

void FigureScreens::focus(const QString& control) {
    key(Qt::Key_Tab);
    item(control).forceActiveFocus(Qt::TabFocusReason);
}

void FigureScreens::drag(const QString& control, int distance) {
    const QPoint from = place(control).center().toPoint();
    QTest::mousePress(&window(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(&window(), from + QPoint(distance, 0));
    QTest::mouseRelease(&window(), Qt::LeftButton, Qt::NoModifier, from + QPoint(distance, 0));
}

}  // namespace morvane
