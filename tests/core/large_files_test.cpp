#include <cerrno>

#include "core/store_test.h"

namespace morvane {
namespace {

class LargeFiles : public StoreTest {
protected:
    void add(std::string_view name, std::int64_t bytes, std::chrono::hours age = 24h * 400) {
        files.addFile(home(name), bytes, system.now - age);
    }
    void scan(bool force = false) {
        state->scanFiles(force);
        finishWork();
    }
    [[nodiscard]] Texts found() const {
        Texts names;
        for (const LargeFile& file : *state->files) names.push_back(file.url.filename());
        std::sort(names.begin(), names.end());
        return names;
    }
    [[nodiscard]] Texts shown() const {
        Texts names;
        for (const LargeFile& file : state->filteredFiles()) names.push_back(file.url.filename());
        return names;
    }
};

TEST_F(LargeFiles, AreFoundFromAHundredMegabytesOn) {
    add("Movies/a.mp4", 100'000'000);
    add("Movies/b.mp4", 99'999'999);
    add("top.zip", 600'000'000);
    start();
    state->scanFiles(false);
    EXPECT_TRUE(*state->isScanningFiles);
    finishWork();
    EXPECT_FALSE(*state->isScanningFiles);
    EXPECT_THAT(found(), ElementsAre("a.mp4", "top.zip"));
    EXPECT_THAT(shown(), ElementsAre("top.zip"));
    EXPECT_EQ(*state->filesScannedAt, system.now);
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(LargeFiles, AreNotLookedForAgainWithinFiveMinutes) {
    add("a.mp4", 200'000'000);
    start();
    scan();
    add("b.mp4", 200'000'000);
    loop.advance(300s - 1ns);
    scan();
    EXPECT_THAT(found(), SizeIs(1));
    loop.advance(1ns);
    scan();
    EXPECT_THAT(found(), SizeIs(2));
    add("c.mp4", 200'000'000);
    scan(true);
    EXPECT_THAT(found(), SizeIs(3));
}

TEST_F(LargeFiles, AreLookedForOnceAtATime) {
    ThreadGate& gate = hold("list", "/Users/sam");
    start();
    state->scanFiles(true);
    state->scanFiles(true);
    gate.open();
    finishWork();
    EXPECT_EQ(timesAsked("list /Users/sam"), 1);
}

TEST_F(LargeFiles, AppearFolderByFolderTheFirstTime) {
    add("one/a.mp4", 200'000'000);
    add("two/b.mp4", 200'000'000);
    ThreadGate& gate = hold("walk", home("two"));
    start();
    state->scanFiles(false);
    runUntil([&] { return !state->files->empty(); });
    EXPECT_THAT(found(), ElementsAre("a.mp4"));
    EXPECT_EQ(*state->filesScannedAt, std::nullopt);
    gate.open();
    finishWork();
    EXPECT_THAT(found(), ElementsAre("a.mp4", "b.mp4"));
}

TEST_F(LargeFiles, StayInPlaceWhileTheyAreLookedForAgain) {
    add("one/a.mp4", 200'000'000);
    add("two/b.mp4", 200'000'000);
    start();
    scan();
    files.remove(home("one/a.mp4"));
    add("one/c.mp4", 200'000'000);
    state->fileSelection = Ids{home("one/a.mp4"), home("two/b.mp4")};
    ThreadGate& gate = hold("walk", home("two"));
    state->scanFiles(true);
    runUntilHeld(gate);
    loop.runReady();
    EXPECT_THAT(found(), ElementsAre("a.mp4", "b.mp4"));
    gate.open();
    finishWork();
    EXPECT_THAT(found(), ElementsAre("b.mp4", "c.mp4"));
    EXPECT_THAT(*state->fileSelection, ElementsAre("/Users/sam/two/b.mp4"));
}

TEST_F(LargeFiles, OfACancelledSearchLeaveTheListAndItsDate) {
    add("one/a.mp4", 200'000'000);
    start();
    scan();
    files.remove(home("one/a.mp4"));
    ThreadGate& gate = hold("walk", home("one"));
    state->scanFiles(true);
    runUntilHeld(gate);
    loop.runReady();
    state->fileScanTask.cancel();
    loop.advance(1h);
    gate.open();
    finishWork();
    EXPECT_THAT(found(), ElementsAre("a.mp4"));
    EXPECT_EQ(*state->filesScannedAt, system.now);
    EXPECT_FALSE(*state->isScanningFiles);
}

TEST_F(LargeFiles, AreNotLookedForInIgnoredFolders) {
    add("one/a.mp4", 200'000'000);
    add("two/deep/b.mp4", 200'000'000);
    add("three.mp4", 200'000'000);
    defaults.stored["ignoredFolders"] =
        Texts{"/Users/sam/one", "/Users/sam/two/deep", "/Users/sam/three.mp4"};
    start();
    scan();
    EXPECT_THAT(found(), IsEmpty());
    EXPECT_FALSE(files.wasAsked("walk /Users/sam/one"));
}

TEST_F(LargeFiles, AreLeftOutOfAFolderIgnoredWhileTheSearchRan) {
    add("one/a.mp4", 200'000'000);
    add("two/b.mp4", 200'000'000);
    ThreadGate& gate = hold("walk", home("two"));
    start();
    state->scanFiles(false);
    runUntil([&] { return !state->files->empty(); });
    system.workspace.panelAnswer = Paths{home("one")};
    state->addIgnoredFolders();
    loop.runReady();
    EXPECT_THAT(found(), IsEmpty());
    gate.open();
    finishWork();
    EXPECT_THAT(found(), ElementsAre("b.mp4"));
}

TEST_F(LargeFiles, OfAHomeThatCannotBeListedAreNone) {
    add("a.mp4", 200'000'000);
    files.refuseReading("/Users/sam");
    start();
    scan();
    EXPECT_THAT(found(), IsEmpty());
    EXPECT_EQ(*state->filesScannedAt, system.now);
}

TEST_F(LargeFiles, AreFilteredBySizeAgeAndKind) {
    start();
    const Instant now = system.now;
    state->files = {{"/a", 500'000'000, FileKind::video, {}, now - 24h * 30},
                    {"/b", 499'999'999, FileKind::video, {}, now - 24h * 400},
                    {"/c", 900'000'000, FileKind::archive, {}, now - (24h * 30 - 1s)},
                    {"/d", 500'000'000, FileKind::archive, {}, now - 24h * 90}};
    EXPECT_THAT(shown(), ElementsAre("c", "a", "d"));
    state->fileMinMonths = 1;
    EXPECT_THAT(shown(), ElementsAre("a", "d"));
    state->fileKind = FileKind::archive;
    EXPECT_THAT(shown(), ElementsAre("d"));
    state->fileMinMB = 100;
    state->fileKind = FileKind::video;
    EXPECT_THAT(shown(), ElementsAre("a", "b"));
}

class TrashFiles : public LargeFiles {
protected:
    TrashFiles() {
        start();
        state->files = {placed(LargeFile{"/f/one.mp4", 600'000'000}),
                        placed(LargeFile{"/f/two.mp4", 700'000'000}),
                        placed(LargeFile{"/f/three.mp4", 800'000'000})};
    }
    void trashSelected(Ids paths) {
        state->fileSelection = std::move(paths);
        state->trashSelectedFiles();
        finishWork();
    }
    [[nodiscard]] std::string failure() const {
        const auto* failed = std::get_if<RemovalFailed>(&**state->fileResult);
        return failed == nullptr ? "" : failed->message;
    }
};

TEST_F(TrashFiles, MovesWhatIsChosenInTheOrderOnView) {
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre("/f/two.mp4", "/f/one.mp4")));
    EXPECT_EQ(*state->fileResult, TrashResult(FilesRemoved{2, 1300.0}));
    EXPECT_THAT(found(), ElementsAre("three.mp4"));
    EXPECT_THAT(*state->fileSelection, IsEmpty());
    EXPECT_EQ(state->history->front().summary, "2 large files · 1.3 GB");
    EXPECT_THAT(state->history->front().trashed, SizeIs(2));
    EXPECT_FALSE(*state->isTrashingFiles);
    EXPECT_EQ(*state->lastSweptAt, std::nullopt);
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
}

TEST_F(TrashFiles, NamesASingleFileInTheHistory) {
    trashSelected({"/f/two.mp4"});
    EXPECT_EQ(state->history->front().summary, "two.mp4 · 700 MB");
    EXPECT_EQ(*state->fileResult, TrashResult(FilesRemoved{1, 700.0}));
}

TEST_F(TrashFiles, OfNothingOnViewDoesNothing) {
    state->fileResult = TrashResult(RemovalFailed{"old"});
    trashSelected({});
    trashSelected({"/f/gone.mp4"});
    state->fileMinMB = 650;
    trashSelected({"/f/one.mp4"});
    EXPECT_EQ(failure(), "old");
    EXPECT_THAT(remover.recycled, IsEmpty());
}

TEST_F(TrashFiles, SaysHowManyWentWhereOthersStayed) {
    remover.immovable = {"/f/two.mp4"};
    trashSelected({"/f/one.mp4", "/f/two.mp4", "/f/three.mp4"});
    EXPECT_EQ(failure(), "Moved 2 of 3 files. The rest couldn’t be removed.");
    EXPECT_THAT(found(), ElementsAre("two.mp4"));
    EXPECT_THAT(*state->fileSelection, ElementsAre("/f/two.mp4"));
    EXPECT_EQ(state->history->front().summary, "2 large files · 1.4 GB");
}

TEST_F(TrashFiles, NamesTheFileWhichAloneWentOfSeveral) {
    remover.immovable = {"/f/two.mp4"};
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_EQ(failure(), "Moved 1 of 2 files. The rest couldn’t be removed.");
    EXPECT_EQ(state->history->front().summary, "one.mp4 · 600 MB");
}

TEST_F(TrashFiles, SaysWhyNothingMoved) {
    remover.refusesEverything = failureFromErrno(EPERM, "/f/one.mp4");
    trashSelected({"/f/one.mp4"});
    EXPECT_EQ(failure(), "Couldn’t move one.mp4 to the Trash. macOS does not allow it.");
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_EQ(failure(), "Couldn’t move the files to the Trash. macOS does not allow it.");
    remover.reportsNoError = true;
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_EQ(failure(), "Couldn’t move the files to the Trash. Nothing was moved.");
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_THAT(*state->files, SizeIs(3));
}

TEST_F(TrashFiles, SpeaksOfDeletingWhereTheTrashIsNotUsed) {
    state->alwaysUseTrash = false;
    remover.refusesEverything = failureFromErrno(EPERM, "/f/one.mp4");
    trashSelected({"/f/one.mp4"});
    EXPECT_EQ(failure(), "Couldn’t delete one.mp4. macOS does not allow it.");
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_EQ(failure(), "Couldn’t delete the files. macOS does not allow it.");
    remover.refusesEverything.reset();
    remover.immovable = {"/f/one.mp4"};
    trashSelected({"/f/one.mp4", "/f/two.mp4"});
    EXPECT_EQ(failure(), "Deleted 1 of 2 files. The rest couldn’t be removed.");
    EXPECT_THAT(state->history->front().trashed, IsEmpty());
}

TEST_F(TrashFiles, KeepsOutASecondRun) {
    ThreadGate gate;
    remover.whileRemoving = [&] { gate.pass(); };
    state->fileResult = TrashResult(RemovalFailed{"old"});
    state->fileSelection = Ids{"/f/one.mp4"};
    state->trashSelectedFiles();
    EXPECT_TRUE(*state->isTrashingFiles);
    EXPECT_TRUE(state->isRemoving());
    EXPECT_EQ(*state->fileResult, std::nullopt);
    state->fileSelection = Ids{"/f/two.mp4"};
    state->trashSelectedFiles();
    gate.open();
    finishWork();
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre("/f/one.mp4")));
    EXPECT_THAT(*state->fileSelection, ElementsAre("/f/two.mp4"));
}

}  // namespace
}  // namespace morvane
