// The rows of the ignore list and of the history, by pointer, keyboard and assistive client.

#include "ui/settings/settings_window.h"

namespace morvane {
namespace {

class SettingsRows : public SettingsWindow {
protected:
    void ignore(std::vector<std::string> folders) {
        for (const std::string& folder : folders) files.addFolder(Path(folder));
        state->ignoredFolders = std::move(folders);
        awaitItem(QStringLiteral("ignored0Show"));
    }
    // A sweep whose one item lies in the Trash; newest last made.
    void sweep(const std::string& name) {
        files.addFile(trash(name), 10);
        state->recordSweep(name, {{home(name), trash(name)}});
    }
};

TEST_F(SettingsRows, ShowAFolderAndTakeItOffTheList) {
    ignore({"/Users/sam/A", "/Users/sam/B"});
    EXPECT_EQ(text(QStringLiteral("ignored1Path")), QStringLiteral("~/B"));
    click(QStringLiteral("ignored1Show"));
    EXPECT_THAT(system.workspace.revealed, testing::ElementsAre("/Users/sam/B"));
    click(QStringLiteral("ignored0Remove"));
    EXPECT_THAT(*state->ignoredFolders, testing::ElementsAre("/Users/sam/B"));
}

TEST_F(SettingsRows, AFolderThatHasGoneCanOnlyBeRemoved) {
    state->ignoredFolders = {"/Users/sam/Gone"};
    settle();
    EXPECT_EQ(item(QStringLiteral("ignored0Symbol")).property("name").toString(),
              QStringLiteral("questionmark.folder"));
    EXPECT_EQ(item(QStringLiteral("ignored0Path")).property("color").value<QColor>(),
              theme().inkFaint());
    EXPECT_EQ(find(QStringLiteral("ignored0Show")), nullptr);
    EXPECT_EQ(spokenName(QStringLiteral("ignored0")), "~/Gone, /Users/sam/Gone no longer exists");
    click(QStringLiteral("ignored0Remove"));
    EXPECT_TRUE(state->ignoredFolders->empty());
}

TEST_F(SettingsRows, AreOneTabStopWithArrowsInside) {
    ignore({"/Users/sam/A", "/Users/sam/B", "/Users/sam/C"});
    focus(QStringLiteral("ignored0"));
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), QStringLiteral("ignored1"));
    key(Qt::Key_Right);
    EXPECT_EQ(focused(), QStringLiteral("ignored1Show"));
    key(Qt::Key_Right);
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), QStringLiteral("ignored2Remove"));
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    EXPECT_EQ(focused(), QStringLiteral("ignored2"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("addFolder"));
    key(Qt::Key_Backtab);
    EXPECT_EQ(focused(), QStringLiteral("ignored2"));
    key(Qt::Key_Home);
    EXPECT_EQ(focused(), QStringLiteral("ignored0"));
    key(Qt::Key_End);
    EXPECT_EQ(focused(), QStringLiteral("ignored2"));
}

TEST_F(SettingsRows, LeaveTheKeyboardOnTheNeighbourOfWhatWent) {
    ignore({"/Users/sam/A", "/Users/sam/B", "/Users/sam/C"});
    focus(QStringLiteral("ignored1Remove"));
    key(Qt::Key_Space);
    EXPECT_EQ(focused(), QStringLiteral("ignored1Remove"));
    EXPECT_EQ(spokenName(QStringLiteral("ignored1Remove")), "Remove, ~/C");
    key(Qt::Key_Space);
    EXPECT_EQ(focused(), QStringLiteral("ignored0Remove"));
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    key(Qt::Key_Delete);
    EXPECT_TRUE(state->ignoredFolders->empty());
    EXPECT_EQ(focused(), QStringLiteral("addFolder"));
}

TEST_F(SettingsRows, LeaveTheKeyboardWhereItIsWhenAnotherRowGoes) {
    ignore({"/Users/sam/A", "/Users/sam/B", "/Users/sam/C"});
    focus(QStringLiteral("ignored2"));
    const QQuickItem* const row = window().activeFocusItem();
    state->removeIgnoredFolder("/Users/sam/A");
    settle();
    EXPECT_EQ(window().activeFocusItem(), row);
    EXPECT_EQ(focused(), QStringLiteral("ignored1"));
    focus(QStringLiteral("remindSwitch"));
    state->removeIgnoredFolder("/Users/sam/C");
    settle();
    EXPECT_EQ(focused(), QStringLiteral("remindSwitch"));
}

TEST_F(SettingsRows, OfALongListOnlyThoseNearTheViewExist) {
    std::vector<std::string> folders;
    for (int each = 0; each < 500; ++each) folders.push_back("/f/" + std::to_string(each));
    state->ignoredFolders = folders;
    settle();
    const QQuickItem& list = item(QStringLiteral("ignoredFolders"));
    EXPECT_EQ(list.height(), 500 * 38);
    EXPECT_LT(list.childItems().size(), 60);
    item(QStringLiteral("settingsScroll")).setProperty("contentY", 10'000);
    settle();
    EXPECT_NE(find(QStringLiteral("ignored260")), nullptr);
    EXPECT_EQ(find(QStringLiteral("ignored100")), nullptr);
    EXPECT_LT(list.childItems().size(), 60);
    // The row that Tab comes to is there all the same.
    focus(QStringLiteral("ignored0"));
    key(Qt::Key_End);
    EXPECT_EQ(focused(), QStringLiteral("ignored499"));
    EXPECT_TRUE(
        place(QStringLiteral("settingsScroll")).contains(place(QStringLiteral("ignored499"))));
}

TEST_F(SettingsRows, PutASweepBackAndKeepTheKeyboardOnIt) {
    sweep("Two");
    sweep("One");
    awaitItem(QStringLiteral("sweep1Restore"));
    EXPECT_EQ(spokenName(QStringLiteral("sweep1Restore")), "Restore, Two");
    focus(QStringLiteral("sweep0"));
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    EXPECT_EQ(focused(), QStringLiteral("sweep1Restore"));
    key(Qt::Key_Space);
    awaitItem(QStringLiteral("sweep1Words"));
    EXPECT_EQ(text(QStringLiteral("sweep1Words")), QStringLiteral("Put back"));
    EXPECT_EQ(item(QStringLiteral("sweep1Words")).property("color").value<QColor>(),
              theme().safeInk());
    EXPECT_EQ(find(QStringLiteral("sweep1Restore")), nullptr);
    EXPECT_EQ(focused(), QStringLiteral("sweep1"));
    EXPECT_TRUE(stands(home("Two")));
}

TEST_F(SettingsRows, SayWhyASweepDidNotComeBackUnderIt) {
    sweep("One");
    awaitItem(QStringLiteral("sweep0Restore"));
    const double height = place(QStringLiteral("sweep0")).height();
    state->restoreProblem = {{state->history->front().id, "Something stands in its place."}};
    settle();
    EXPECT_EQ(text(QStringLiteral("sweep0Problem")),
              QStringLiteral("Something stands in its place."));
    EXPECT_GT(place(QStringLiteral("sweep0Problem")).top(),
              place(QStringLiteral("sweep0Summary")).bottom());
    EXPECT_GT(place(QStringLiteral("sweep0")).height(), height);
    EXPECT_NE(find(QStringLiteral("sweep0Restore")), nullptr);
}

TEST_F(SettingsRows, AnEmptiedTrashShowsOnActivation) {
    sweep("One");
    awaitItem(QStringLiteral("sweep0Restore"));
    files.remove(trash("One"));
    model().becameActive();
    awaitItem(QStringLiteral("sweep0Words"));
    EXPECT_EQ(text(QStringLiteral("sweep0Words")), QStringLiteral("Trash was emptied"));
    EXPECT_EQ(find(QStringLiteral("sweep0Restore")), nullptr);
}

TEST_F(SettingsRows, ARestoreFromATrashEmptiedMeanwhileSaysSo) {
    sweep("One");
    awaitItem(QStringLiteral("sweep0Restore"));
    files.remove(trash("One"));
    click(QStringLiteral("sweep0Restore"));
    awaitItem(QStringLiteral("sweep0Words"));
    EXPECT_EQ(text(QStringLiteral("sweep0Words")), QStringLiteral("Trash was emptied"));
    EXPECT_EQ(find(QStringLiteral("sweep0Restore")), nullptr);
}

TEST_F(SettingsRows, AFolderThatHasGoneMeanwhileIsNotShownButSaysSo) {
    ignore({"/Users/sam/A"});
    files.remove("/Users/sam/A");
    click(QStringLiteral("ignored0Show"));
    EXPECT_TRUE(loop.runUntil([&] { return find(QStringLiteral("ignored0Show")) == nullptr; }));
    settle();
    EXPECT_EQ(spokenName(QStringLiteral("ignored0")), "~/A, /Users/sam/A no longer exists");
    EXPECT_THAT(system.workspace.revealed, testing::IsEmpty());
}

TEST_F(SettingsRows, ANameOfAnyLengthStaysInItsRow) {
    ignore({"/Users/sam/" + std::string(10'000, 'x') + "\n\u202e"});
    const QRectF row = place(QStringLiteral("ignored0"));
    EXPECT_TRUE(row.contains(place(QStringLiteral("ignored0Path"))));
    EXPECT_LT(place(QStringLiteral("ignored0Path")).right(),
              place(QStringLiteral("ignored0Show")).left());
    EXPECT_EQ(row.height(), 38);
    state->recordSweep(std::string(10'000, 'y') + "\n", {});
    settle();
    EXPECT_TRUE(place(QStringLiteral("sweep0")).contains(place(QStringLiteral("sweep0Summary"))));
    EXPECT_LT(place(QStringLiteral("sweep0Summary")).right(),
              place(QStringLiteral("sweep0Words")).left());
}

}  // namespace
}  // namespace morvane
