// What the Overview does by pointer, by keyboard and with time.

#include <QAccessible>
#include <QTest>

#include "ui/window_test.h"

namespace morvane {
namespace {

class Overview : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (HasFatalFailure()) return;
        measureAll();
    }
    // Nothing is left to measure.
    void measureAll() {
        DiskUsage disk = *state->disk;
        disk.isComplete = true;
        state->disk = disk;
        settle();
    }
    [[nodiscard]] QAccessibleInterface& spoken(const QString& objectName) {
        return *QAccessible::queryAccessibleInterface(&item(objectName));
    }
    // Whether the property changes by time alone.
    [[nodiscard]] bool moves(const QQuickItem& of, const char* property) {
        const QVariant before = of.property(property);
        pass(0);
        pass(350);
        return of.property(property) != before;
    }
    [[nodiscard]] static std::string name(QAccessibleInterface& of) {
        return of.text(QAccessible::Name).toStdString();
    }
};

TEST_F(Overview, ReturnScansAndEscapeStops) {
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    finishWork();
    EXPECT_EQ(*state->scanPhase, ScanPhase::empty);
    show(ScanPhase::scanning);
    key(Qt::Key_Return);
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
    key(Qt::Key_Escape);
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(Overview, ReturnGoesToTheReviewOfResults) {
    show(ScanPhase::done);
    key(Qt::Key_Return);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
}

TEST_F(Overview, AClickOnACardGoesToItsScreen) {
    show(ScanPhase::done);
    click(QStringLiteral("category1"));
    EXPECT_EQ(*state->selection, SidebarItem::developer);
}

TEST_F(Overview, CardsAreOneTabStopWithArrowsInside) {
    show(ScanPhase::done);
    item(QStringLiteral("resultsReview")).forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QLatin1String("category0"));
    key(Qt::Key_Right);
    EXPECT_EQ(focused(), QLatin1String("category1"));
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), QLatin1String("category4"));
    key(Qt::Key_Right);
    EXPECT_EQ(focused(), QLatin1String("category4"));
    key(Qt::Key_Backtab);
    EXPECT_EQ(focused(), QLatin1String("resultsReview"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QLatin1String("category4"));
    key(Qt::Key_Up);
    key(Qt::Key_Space);
    EXPECT_EQ(*state->selection, SidebarItem::developer);
}

TEST_F(Overview, OtherResultsStandThereAtOnceAndBeginAtTheirFirstCard) {
    show(ScanPhase::done);
    EXPECT_EQ(item(QStringLiteral("category0Amount")).property("text"), "3.0 GB");
    item(QStringLiteral("category4")).forceActiveFocus(Qt::TabFocusReason);
    show(ScanPhase::scanning);
    EXPECT_EQ(find(QStringLiteral("category0")), nullptr);
    state->crumbItems = {trashItem("Caches", Safety::safe, 1'000'000'000)};
    state->scanPhase = ScanPhase::done;
    settle();
    EXPECT_EQ(item(QStringLiteral("category0Amount")).property("text"), "1.0 GB");
    item(QStringLiteral("resultsReview")).forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QLatin1String("category0"));
}

TEST_F(Overview, TheKeyboardGoesOnInTheNextCard) {
    item(QStringLiteral("idleButton")).forceActiveFocus(Qt::TabFocusReason);
    show(ScanPhase::scanning);
    EXPECT_EQ(focused(), QLatin1String("scanningButton"));
    show(ScanPhase::done);
    EXPECT_EQ(focused(), QLatin1String("resultsReview"));
    show(ScanPhase::success);
    EXPECT_EQ(focused(), QLatin1String("successDone"));
    show(ScanPhase::empty);
    EXPECT_EQ(focused(), QLatin1String("spotlessButton"));
}

TEST_F(Overview, ANewPhaseFadesIn) {
    fillBar();  // something moves all the time, so that the clock is never at rest
    state->scanPhase = ScanPhase::empty;
    loop.runReady();
    EXPECT_EQ(find(QStringLiteral("idleCard")), nullptr);
    EXPECT_EQ(item(QStringLiteral("spotlessCard")).opacity(), 0);
    pass(0);
    pass(100);
    EXPECT_GT(item(QStringLiteral("spotlessCard")).opacity(), 0.1);
    EXPECT_LT(item(QStringLiteral("spotlessCard")).opacity(), 0.9);
    settle();
    EXPECT_EQ(item(QStringLiteral("spotlessCard")).opacity(), 1);
}

TEST_F(Overview, MovesNothingWhereMotionIsReduced) {
    theme().setReducedMotion(true);
    fillBar();
    state->scanPhase = ScanPhase::scanning;
    loop.runReady();
    EXPECT_EQ(item(QStringLiteral("scanningCard")).opacity(), 1);
    EXPECT_FALSE(moves(item(QStringLiteral("sweepingAnimation")), "time"));
    EXPECT_FALSE(moves(item(QStringLiteral("slice3Measuring")), "opacity"));
    show(ScanPhase::success);
    EXPECT_FALSE(moves(item(QStringLiteral("confetti")), "time"));
}

TEST_F(Overview, WhatIsMeasuredPulsesWhileItIsOnView) {
    fillBar();
    QQuickItem& fill = item(QStringLiteral("slice3Measuring"));
    EXPECT_TRUE(moves(fill, "opacity"));
    EXPECT_GE(fill.opacity(), 0.35);
    EXPECT_LE(fill.opacity(), 0.8);
    state->selection = SidebarItem::settings;
    settle();
    EXPECT_FALSE(moves(fill, "opacity"));
}

TEST_F(Overview, AScanAndItsSuccessMoveOnlyWhileTheyAreOnView) {
    for (const auto& [phase, name] :
         {std::pair(ScanPhase::scanning, QStringLiteral("sweepingAnimation")),
          std::pair(ScanPhase::success, QStringLiteral("confetti"))}) {
        show(phase);
        QQuickItem& art = item(name);
        EXPECT_TRUE(moves(art, "time"));
        state->selection = SidebarItem::settings;
        settle();
        EXPECT_FALSE(moves(art, "time"));
        state->selection = SidebarItem::overview;
        settle();
    }
}

TEST_F(Overview, AChangeMadeElsewhereStandsAtOnceOnReturn) {
    state->selection = SidebarItem::settings;
    settle();
    state->scanPhase = ScanPhase::empty;
    settle();
    state->selection = SidebarItem::overview;
    turn();
    EXPECT_EQ(item(QStringLiteral("spotlessCard")).opacity(), 1);
}

TEST_F(Overview, WithoutTheTrashSuccessHasOnlyDone) {
    state->alwaysUseTrash = false;
    show(ScanPhase::success);
    EXPECT_EQ(find(QStringLiteral("successOpenTrash")), nullptr);
    click(QStringLiteral("successDone"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::done);
}

TEST_F(Overview, DoneWithNothingLeftIsSpotless) {
    state->scannedAt = system.now;
    state->scanPhase = ScanPhase::success;
    settle();
    click(QStringLiteral("successDone"));
    EXPECT_NE(find(QStringLiteral("spotlessCard")), nullptr);
    EXPECT_EQ(find(QStringLiteral("idleCard")), nullptr);
}

TEST_F(Overview, TellsAnAssistiveClientWhatStandsThere) {
    fillBar();
    EXPECT_EQ(spoken(QStringLiteral("legend0")).role(), QAccessible::ListItem);
    EXPECT_EQ(name(spoken(QStringLiteral("legend0"))), "Apps, 50 GB");
    show(ScanPhase::scanning);
    EXPECT_EQ(name(spoken(QStringLiteral("scanningRow0"))), "System crumbs, 3.0 GB");
    EXPECT_EQ(spoken(QStringLiteral("scanningTrack")).role(), QAccessible::ProgressBar);
    EXPECT_EQ(spoken(QStringLiteral("scanningTrack")).text(QAccessible::Description).toStdString(),
              "40%");
    show(ScanPhase::done);
    QAccessibleInterface& card = spoken(QStringLiteral("category1"));
    EXPECT_EQ(card.role(), QAccessible::Button);
    EXPECT_EQ(name(card), "Developer Junk");
    card.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(*state->selection, SidebarItem::developer);
}

TEST_F(Overview, ANameOfAnyLengthLeavesTheFiguresInPlace) {
    DiskUsage disk = *state->disk;
    disk.volumeName = std::string(10'000, 'x') + "\n\u202e";
    state->disk = disk;
    settle();
    const QRectF card = place(QStringLiteral("diskCard"));
    EXPECT_TRUE(card.contains(place(QStringLiteral("diskName"))));
    EXPECT_TRUE(card.contains(place(QStringLiteral("diskUsed"))));
    EXPECT_EQ(item(QStringLiteral("diskUsed")).property("truncated").toBool(), false);
    EXPECT_LT(place(QStringLiteral("diskUsed")).right(), place(QStringLiteral("diskFree")).left());
}

}  // namespace
}  // namespace morvane
