// What moves between two states, and how far it is at a given time.

#include <QTest>
#include <QVariantAnimation>

#include "ui/figures/figure_screens.h"

namespace morvane {
namespace {

// The part of its way that a spring has gone after 50 milliseconds.
constexpr double quickPart = 0.5094;     // response 0.2, damping fraction 0.85
constexpr double choicePart = 0.6812;    // response 0.15, damping fraction 0.85
constexpr double standardPart = 0.1313;  // response 0.5, damping fraction 1

class Motions : public FigureScreens {
protected:
    void SetUp() override {
        FigureScreens::SetUp();
        frames_.setStartValue(0);
        frames_.setEndValue(1);
        frames_.setDuration(1'000'000);
        frames_.start();
        settle();
    }
    void TearDown() override {
        frames_.stop();
        FigureScreens::TearDown();
    }
    void press(const QString& control) {
        QTest::mouseClick(&window(), Qt::LeftButton, Qt::NoModifier,
                          place(control).center().toPoint());
        moveOn();
    }
    // 50 milliseconds from what has just changed.
    void moveOn() {
        turn();
        pass(0);
        pass(50);
    }
    [[nodiscard]] double number(const char* control, const char* property) {
        return item(QString::fromLatin1(control)).property(property).toDouble();
    }
    [[nodiscard]] double top(const char* control) {
        return place(QString::fromLatin1(control)).top();
    }

private:
    // Frames never rest, so that no motion counts the time that the machine takes for its first.
    QVariantAnimation frames_;
};

TEST_F(Motions, APanelComesAndGoesFadingAndMoving) {
    enter(QStringLiteral("review.list"));
    const double closed = top("row:Logs");
    press(QStringLiteral("row:CachesRowLabel"));
    EXPECT_NEAR(number("row:CachesPanel", "opacity"), quickPart, 0.01);
    EXPECT_NEAR(number("row:CachesPanel", "y"), 42 - 12 * (1 - quickPart), 0.2);
    EXPECT_NEAR(number("row:CachesRowChevron", "rotation"), 90 * quickPart, 1);
    settle();
    const double open = top("row:Logs");
    const double card = place(QStringLiteral("group0Card")).height();
    EXPECT_GT(open, closed + 80);
    EXPECT_EQ(number("row:CachesPanel", "opacity"), 1);
    press(QStringLiteral("row:CachesRowLabel"));
    EXPECT_NEAR(number("row:CachesPanel", "opacity"), 1 - quickPart, 0.01);
    EXPECT_FALSE(item(QStringLiteral("row:CachesPanel")).isEnabled());
    EXPECT_NEAR(top("row:Logs"), open + (closed - open) * quickPart, 1);
    EXPECT_NEAR(place(QStringLiteral("group0Card")).height(), card + (closed - open) * quickPart,
                1);
    settle();
    EXPECT_EQ(find(QStringLiteral("row:CachesPanel")), nullptr);
    EXPECT_EQ(top("row:Logs"), closed);
}

TEST_F(Motions, TheChosenSegmentSpringsToItsPlace) {
    enter(QStringLiteral("review.list"));
    const double from = place(QStringLiteral("presetThumb")).left();
    const double to = place(QStringLiteral("preset2")).left();
    press(QStringLiteral("preset2"));
    EXPECT_NEAR(place(QStringLiteral("presetThumb")).left(), from + (to - from) * choicePart, 1);
    settle();
    EXPECT_EQ(place(QStringLiteral("presetThumb")).left(), to);
}

TEST_F(Motions, TheDiskInTheSidebarMovesToItsNewFigures) {
    EXPECT_NEAR(number("diskSummaryTrackFill", "width"), 140.8, 0.01);
    state->disk = DiskUsage{.totalBytes = 500'000'000'000, .freeBytes = 400'000'000'000};
    moveOn();
    EXPECT_NEAR(number("diskSummaryTrackFill", "width"), 140.8 - 105.6 * standardPart, 1);
    EXPECT_EQ(number("diskSummaryTrack", "part"), 0.2);
    settle();
    EXPECT_NEAR(number("diskSummaryTrackFill", "width"), 35.2, 0.01);
}

TEST_F(Motions, NothingMovesWhereMotionIsReduced) {
    enter(QStringLiteral("review.list"));
    theme().setReducedMotion(true);
    press(QStringLiteral("row:CachesRowLabel"));
    EXPECT_EQ(number("row:CachesPanel", "opacity"), 1);
    press(QStringLiteral("row:CachesRowLabel"));
    EXPECT_EQ(find(QStringLiteral("row:CachesPanel")), nullptr);
}

TEST_F(Motions, TheSidebarIsPulledByEitherSideOfItsEdge) {
    for (const int side : {-3, 3}) {
        const QPoint from = place(QStringLiteral("divider")).center().toPoint() + QPoint(side, 0);
        const double before = place(QStringLiteral("sidebar")).width();
        QTest::mousePress(&window(), Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(&window(), from + QPoint(10, 0));
        QTest::mouseRelease(&window(), Qt::LeftButton, Qt::NoModifier, from + QPoint(10, 0));
        settle();
        EXPECT_NEAR(place(QStringLiteral("sidebar")).width(), before + 10, 1);
    }
}

}  // namespace
}  // namespace morvane
