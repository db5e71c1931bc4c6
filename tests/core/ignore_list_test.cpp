#include "core/store_test.h"

namespace morvane {
namespace {

class IgnoreList : public StoreTest {
protected:
    IgnoreList() {
        files.addFolder(home("One"));
        files.addFolder(home("Two/Inner"));
    }
    void begin(Texts folders = {}) {
        if (!folders.empty()) defaults.stored["ignoredFolders"] = std::move(folders);
        start();
        state->crumbItems = {trashItem("caches", Safety::safe,
                                       {{home("One/a"), 100}, {home("Two/b"), 20}, {"/c", 3}}),
                             trashItem("logs", Safety::safe, {{home("One/log"), 7}})};
        state->devSections = {
            {devSection("pkg", {trashItem("pkg:a", Safety::regenerates, {{home("One/pkg"), 5}})})}};
        state->apps = {{.url = home("One/Editor.app"), .name = "Editor"},
                       {.url = "/Applications/Viewer.app", .name = "Viewer"}};
        state->files = {{.url = home("One/film.mp4"), .bytes = 5},
                        {.url = home("Two/film.mp4"), .bytes = 6}};
        state->sweepSelection = Ids{"caches", "logs", "gone"};
        state->devSelection = Ids{"pkg:a"};
        state->fileSelection = Ids{home("One/film.mp4"), home("Two/film.mp4")};
        state->scannedAt = system.now;
        state->appsScannedAt = system.now;
        state->filesScannedAt = system.now;
        defaults.writes.clear();
    }
    void choose(Paths folders) {
        system.workspace.panelAnswer = std::move(folders);
        state->addIgnoredFolders();
        finishWork();
    }
    [[nodiscard]] static MemoryDefaults::Write kept(Texts folders) {
        return {"ignoredFolders", {std::move(folders)}};
    }
};

TEST_F(IgnoreList, AsksWithItsOwnWords) {
    begin();
    state->addIgnoredFolders();
    finishWork();
    ASSERT_THAT(system.workspace.panels, SizeIs(1));
    EXPECT_EQ(system.workspace.panels[0].prompt, "Ignore");
    EXPECT_EQ(system.workspace.panels[0].message,
              "Morvane won’t look inside these folders or suggest anything from them.");
    EXPECT_EQ(system.workspace.panels[0].directory, "/Users/sam");
}

TEST_F(IgnoreList, StaysAsItWasWhenThePanelIsDismissed) {
    begin();
    state->addIgnoredFolders();
    finishWork();
    EXPECT_THAT(*state->ignoredFolders, IsEmpty());
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(IgnoreList, FiltersAllThatIsHeldWhenItGrows) {
    begin();
    choose({home("One")});
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/One"));
    EXPECT_THAT(defaults.writes, ElementsAre(kept({"/Users/sam/One"})));
    ASSERT_THAT(idsOf(*state->crumbItems), ElementsAre("caches"));
    EXPECT_EQ(state->crumbItems->front().bytes, 23);
    EXPECT_THAT(pathsOf(state->crumbItems->front()), ElementsAre(home("Two/b"), "/c"));
    EXPECT_EQ(*state->devSections, std::vector<DevSection>{});
    ASSERT_THAT(*state->apps, SizeIs(1));
    EXPECT_EQ(state->apps->front().name, "Viewer");
    ASSERT_THAT(*state->files, SizeIs(1));
    EXPECT_EQ(state->files->front().url, home("Two/film.mp4"));
}

TEST_F(IgnoreList, KeepsInTheSelectionsWhatIsLeft) {
    begin();
    choose({home("One")});
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches"));
    EXPECT_THAT(*state->devSelection, IsEmpty());
    EXPECT_THAT(*state->fileSelection, ElementsAre("/Users/sam/Two/film.mp4"));
}

TEST_F(IgnoreList, LeavesTheDatesAloneWhenItGrows) {
    begin();
    choose({home("One")});
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_EQ(*state->filesScannedAt, system.now);
    EXPECT_EQ(*state->scannedAt, system.now);
}

TEST_F(IgnoreList, AnimatesWhatItTakesOut) {
    begin();
    loop.runReady();
    ChangedFields seen;
    const auto subscription = state->store().observe([&](const ChangedFields& changed) {
        if (changed.contains("ignoredFolders")) seen = changed;
    });
    choose({home("One")});
    EXPECT_THAT(seen,
                UnorderedElementsAre(Pair("ignoredFolders", false), Pair("crumbItems", true),
                                     Pair("devSections", true), Pair("apps", true),
                                     Pair("files", true), Pair("sweepSelection", false),
                                     Pair("devSelection", false), Pair("fileSelection", false)));
}

TEST_F(IgnoreList, LeavesUnscannedSectionsAbsent) {
    begin();
    state->devSections = std::nullopt;
    choose({home("One")});
    EXPECT_FALSE(state->devSections->has_value());
}

TEST_F(IgnoreList, KeepsResolvedPaths) {
    begin();
    choose({home("Two/Inner/../../One/")});
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/One"));
}

TEST_F(IgnoreList, SkipsWhatIsCoveredAlready) {
    begin({"/Users/sam/Two"});
    choose({home("Two/Inner"), home("Two")});
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/Two"));
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_EQ(*state->appsScannedAt, system.now);
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "gone", "logs"));
}

TEST_F(IgnoreList, TakesEachOfSeveralChosenFoldersInTurn) {
    begin();
    choose({home("Two/Inner"), home("One"), home("Two"), home("One/a")});
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/One", "/Users/sam/Two"));
}

TEST_F(IgnoreList, GivesWayToAParentWithoutFilteringAtOnce) {
    begin({"/Users/sam/One/a", "/Users/sam/One/b"});
    choose({home("One")});
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/Users/sam/One"));
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches", "logs"));
    EXPECT_THAT(*state->files, SizeIs(2));
    EXPECT_THAT(*state->sweepSelection, ElementsAre("caches", "gone", "logs"));
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
    EXPECT_EQ(*state->filesScannedAt, std::nullopt);
    EXPECT_EQ(*state->scannedAt, system.now);
}

TEST_F(IgnoreList, RestoresNothingWhenItShrinks) {
    begin({"/Users/sam/Three"});
    state->storageScannedAt = system.now;
    state->removeIgnoredFolder("/Users/sam/Three");
    EXPECT_THAT(*state->ignoredFolders, IsEmpty());
    EXPECT_THAT(defaults.writes, ElementsAre(kept({})));
    EXPECT_THAT(idsOf(*state->crumbItems), ElementsAre("caches", "logs"));
    EXPECT_EQ(*state->appsScannedAt, std::nullopt);
    EXPECT_EQ(*state->filesScannedAt, std::nullopt);
    EXPECT_EQ(*state->scannedAt, system.now);
    EXPECT_EQ(*state->storageScannedAt, system.now);
}

TEST_F(IgnoreList, RemovesEveryEqualEntry) {
    begin({"/a", "/b", "/a"});
    state->removeIgnoredFolder("/a");
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/b"));
}

TEST_F(IgnoreList, StoresAgainWhenAnUnknownEntryIsRemoved) {
    begin({"/a"});
    state->removeIgnoredFolder("/b");
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/a"));
    EXPECT_THAT(defaults.writes, ElementsAre(kept({"/a"})));
    EXPECT_EQ(*state->appsScannedAt, system.now);
}

TEST_F(IgnoreList, OfTheWholeDiskTakesEverythingButCommands) {
    begin();
    state->devSections = {{devSection("dock", {commandItem("docker:images", 5, {"image"})})}};
    choose({"/"});
    EXPECT_THAT(state->sweepItems(), IsEmpty());
    EXPECT_THAT(idsOf(state->devItems()), ElementsAre("docker:images"));
    EXPECT_THAT(*state->apps, IsEmpty());
    EXPECT_THAT(*state->files, IsEmpty());
}

}  // namespace
}  // namespace morvane
