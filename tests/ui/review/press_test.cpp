// The review in the window, by its words and by pointer.

#include <QTest>

#include "ui/by_text.h"
#include "ui/window_test.h"

namespace morvane {
namespace {

class ReviewWindow : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        CleanupItem caches = trashItem("Caches", Safety::safe, 3'000'000);
        caches.explanation = "Apps rebuild these.";
        caches.location = "~/Library/Caches";
        caches.revealURL = "/Users/sam/Library/Caches";
        CleanupItem logs = trashItem("Logs", Safety::safe, 2'000'000);
        logs.location = "~/Library/Logs";
        state->crumbItems = {caches, logs};
        state->leftoverItems = {trashItem("Gone", Safety::review, 7'000'000)};
        state->sweepSelection = {"Caches", "Logs"};
        state->scannedAt = system.now;
        state->scanPhase = ScanPhase::done;
        state->selection = SidebarItem::sweep;
        settle();
    }
    [[nodiscard]] QQuickItem* text(const char* words) {
        return itemWithText(*window().contentItem(), QString::fromUtf8(words));
    }
    [[nodiscard]] bool shows(const char* words) { return text(words) != nullptr; }
    // Presses what stands there.
    void press(const char* words) {
        const QQuickItem* const item = text(words);
        ASSERT_NE(item, nullptr) << words;
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        QTest::mouseClick(&window(), Qt::LeftButton, Qt::NoModifier, middle.toPoint());
        settle();
    }
    [[nodiscard]] std::string box(const char* check) {
        return item(QString::fromLatin1(check)).property("state").toString().toStdString();
    }
    void tick(const char* check) { click(QString::fromLatin1(check)); }
    // The segment that stands out; -1 for none.
    [[nodiscard]] int preset() {
        return item(QStringLiteral("preset")).property("selected").toInt();
    }
};

TEST_F(ReviewWindow, OneSafeRowLessShowsNoPresetAndAMixedGroup) {
    EXPECT_EQ(box("group:System CrumbsCheck"), "on");
    EXPECT_EQ(box("row:GoneRowCheck"), "off");
    EXPECT_EQ(preset(), 0);
    tick("row:LogsRowCheck");
    EXPECT_EQ(box("row:LogsRowCheck"), "off");
    EXPECT_EQ(box("row:CachesRowCheck"), "on");
    EXPECT_EQ(box("group:System CrumbsCheck"), "mixed");
    EXPECT_EQ(preset(), -1);
    EXPECT_TRUE(shows("1 item selected"));
    tick("group:System CrumbsCheck");
    EXPECT_EQ(box("group:System CrumbsCheck"), "on");
    EXPECT_EQ(preset(), 0);
}

TEST_F(ReviewWindow, ARowOpensByAPressAnywhereButOnItsBox) {
    tick("row:LogsRowCheck");
    EXPECT_TRUE(state->expandedSweepItems->empty());
    press("2 MB");
    EXPECT_THAT(*state->expandedSweepItems, ElementsAre("Logs"));
    EXPECT_TRUE(shows("What is this?"));
    press("Logs");
    EXPECT_TRUE(state->expandedSweepItems->empty());
    EXPECT_FALSE(shows("What is this?"));
}

TEST_F(ReviewWindow, FarKeysGoThroughALongList) {
    std::vector<CleanupItem> many;
    for (int number = 100; number < 400; ++number) {
        many.push_back(trashItem("Gone" + std::to_string(number), Safety::review, 7'000'000));
    }
    state->leftoverItems = many;
    settle();
    item(QStringLiteral("row:CachesRow")).forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_End);
    EXPECT_EQ(focused(), "row:Gone399Row");
    key(Qt::Key_Home);
    EXPECT_EQ(focused(), "group:System Crumbs");
    key(Qt::Key_PageDown);
    const QString onePageOn = focused();
    EXPECT_TRUE(onePageOn.startsWith(QStringLiteral("row:Gone10"))) << onePageOn.toStdString();
    const QRectF there = place(onePageOn);
    EXPECT_GT(there.top(), 0);
    EXPECT_LT(there.bottom(), window().height());
    key(Qt::Key_PageDown);
    EXPECT_NE(focused(), onePageOn);
    key(Qt::Key_PageUp);
    EXPECT_EQ(focused(), onePageOn);
}

TEST_F(ReviewWindow, AnItemWithoutAPlaceToRevealShowsItsLocationAlone) {
    press("Logs");
    EXPECT_TRUE(shows("~/Library/Logs"));
    EXPECT_FALSE(shows("Reveal in Finder"));
    press("Caches");
    EXPECT_TRUE(shows("Apps rebuild these."));
    press("Reveal in Finder");
    EXPECT_THAT(system.workspace.revealed, ElementsAre(Path("/Users/sam/Library/Caches")));
}

TEST_F(ReviewWindow, AProblemStandsInTheNotesPlaceUntilItIsCleared) {
    EXPECT_TRUE(shows("Goes to the Trash. Nothing is permanently deleted."));
    state->sweepProblem = "1 item couldn’t be removed. They may be in use.";
    settle();
    EXPECT_TRUE(shows("1 item couldn’t be removed. They may be in use."));
    EXPECT_FALSE(shows("Goes to the Trash. Nothing is permanently deleted."));
    state->sweepProblem = std::nullopt;
    settle();
    EXPECT_TRUE(shows("Goes to the Trash. Nothing is permanently deleted."));
}

TEST_F(ReviewWindow, WithoutTheTrashTheButtonAndTheNoteSaySoAtOnce) {
    EXPECT_TRUE(shows("Move to Trash"));
    state->alwaysUseTrash = false;
    settle();
    EXPECT_TRUE(shows("Delete"));
    EXPECT_FALSE(shows("Move to Trash"));
    EXPECT_TRUE(shows("Deleted right away. This can’t be undone."));
}

TEST_F(ReviewWindow, WithNothingSelectedItsButtonDoesNothing) {
    state->sweepSelection = Ids{};
    settle();
    EXPECT_TRUE(shows("0 items selected"));
    press("Move to Trash");
    EXPECT_FALSE(*state->isSweeping);
    EXPECT_TRUE(remover.recycled.empty());
}

}  // namespace
}  // namespace morvane
