// The commands by their keys, and the screen on view.

#include "ui/by_text.h"
#include "ui/window_test.h"

namespace morvane {
namespace {

class Shell : public WindowTest {
protected:
    void command(Qt::Key letter) { key(letter, Qt::ControlModifier); }
    [[nodiscard]] bool shows(const char* text) {
        return itemWithText(*window().contentItem(), QString::fromUtf8(text)) != nullptr;
    }
};

TEST_F(Shell, TheKeysOfTheCommandsGoWhereTheySay) {
    command(Qt::Key_Comma);
    EXPECT_EQ(*state->selection, SidebarItem::settings);
    EXPECT_EQ(window().title(), QStringLiteral("Settings"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    state->scannedAt = system.now;
    key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    EXPECT_EQ(window().title(), QStringLiteral("Sweep"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    hold("list", "/Users/sam");
    command(Qt::Key_R);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(window().title(), QStringLiteral("Overview"));
    EXPECT_EQ(*state->scanPhase, ScanPhase::scanning);
}

TEST_F(Shell, BeforeOnboardingHasEndedTheKeysDoNothing) {
    state->hasOnboarded = false;
    settle();
    command(Qt::Key_Comma);
    key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    command(Qt::Key_R);
    EXPECT_EQ(*state->selection, SidebarItem::overview);
    EXPECT_EQ(*state->scanPhase, ScanPhase::idle);
    EXPECT_EQ(window().title(), QStringLiteral("Morvane"));
}

TEST_F(Shell, WithoutASelectionTheOverviewIsOnView) {
    state->selection = SidebarItem::settings;
    settle();
    EXPECT_EQ(find(QStringLiteral("phaseCards")), nullptr);
    state->selection = std::nullopt;
    settle();
    EXPECT_NE(find(QStringLiteral("phaseCards")), nullptr);
    EXPECT_EQ(find(QStringLiteral("settingsForm")), nullptr);
    EXPECT_EQ(window().title(), QStringLiteral("Overview"));
}

TEST_F(Shell, TheFootOfTheSidebarSaysMacintoshHD) {
    state->disk = DiskUsage{
        .volumeName = "Elsewhere", .totalBytes = 500'000'000'000, .freeBytes = 100'000'000'000};
    settle();
    EXPECT_TRUE(shows("Macintosh HD"));
    EXPECT_TRUE(shows("Elsewhere"));
    EXPECT_TRUE(shows("100 GB free"));
}

TEST_F(Shell, ADiskWithoutATotalIsAnEmptyTrackAndNoError) {
    state->disk = DiskUsage{};
    settle();
    EXPECT_TRUE(shows("Macintosh HD"));
    EXPECT_TRUE(shows("0 GB free"));
    EXPECT_TRUE(shows("0 GB used of 0 GB"));
    EXPECT_EQ(find(QStringLiteral("slice0")), nullptr);
}

TEST_F(Shell, TheReviewScansAsItComesOnViewWhereThereWasNoScan) {
    state->selection = SidebarItem::sweep;
    settle();
    EXPECT_NE(*state->scanPhase, ScanPhase::idle);
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
    finishWork();
    settle();
    EXPECT_TRUE(shows("Nothing to sweep right now."));
    const auto scannedAt = *state->scannedAt;
    ASSERT_NE(scannedAt, std::nullopt);
    loop.advance(60s);
    for (const auto item : {SidebarItem::overview, SidebarItem::sweep}) {
        state->selection = item;
        settle();
    }
    finishWork();
    EXPECT_EQ(*state->scannedAt, scannedAt);
}

TEST_F(Shell, WordsOfDaysFollowTheClock) {
    state->lastSweptAt = system.now;
    settle();
    EXPECT_TRUE(shows("Last swept today"));
    loop.advance(24h);
    model().timePassed();
    settle();
    EXPECT_TRUE(shows("Last swept yesterday"));
}

}  // namespace
}  // namespace morvane
