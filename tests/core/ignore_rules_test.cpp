#include "core/ignore_rules.h"

#include "core/store_test.h"

namespace morvane {
namespace {

TEST(IgnoredFolder, CoversItselfAndAllBelow) {
    const Texts folders{"/Users/sam/Foo", "/opt"};
    EXPECT_TRUE(isIgnored("/Users/sam/Foo", folders));
    EXPECT_TRUE(isIgnored("/Users/sam/Foo/a/b", folders));
    EXPECT_TRUE(isIgnored("/opt/homebrew", folders));
    EXPECT_FALSE(isIgnored("/Users/sam/Foobar", folders));
    EXPECT_FALSE(isIgnored("/Users/sam", folders));
    EXPECT_FALSE(isIgnored("/Users/sam/foo", folders));
}

TEST(IgnoredFolder, IsComparedWithTheResolvedPath) {
    EXPECT_TRUE(isIgnored("/Users/sam/Bar/../Foo/a", {"/Users/sam/Foo"}));
    EXPECT_TRUE(isIgnored("/Users/sam/./Foo/", {"/Users/sam/Foo"}));
    EXPECT_FALSE(isIgnored("/Users/sam/Foo/../Bar", {"/Users/sam/Foo"}));
}

TEST(IgnoredFolder, OfTheWholeDiskCoversEverything) {
    EXPECT_TRUE(isIgnored("/", {"/"}));
    EXPECT_TRUE(isIgnored("/Users/sam", {"/"}));
}

TEST(IgnoredFolder, OfNoListCoversNothing) {
    EXPECT_FALSE(isIgnored("/", {}));
}

TEST(IgnoredFolder, IsKnownByTheTextOfABadName) {
    EXPECT_TRUE(isIgnored("/a/bad\xff/b", {"/a/bad%FF"}));
    EXPECT_FALSE(isIgnored("/a/bad%FF/b", {"/a/bad%FF"}));
}

CleanupItem threeParts() {
    CleanupItem item = trashItem("caches", Safety::regenerates,
                                 {{"/a/one", 1}, {"/b/two", 20}, {"/c/three", 300}});
    item.location = "~/Library/Caches";
    item.explanation = "Copies.";
    item.lastUsed = "Used today";
    item.revealURL = "/b/two";
    return item;
}

TEST(KeepingIgnored, TakesOutTheCoveredPartsAndNothingElse) {
    CleanupItem expected = threeParts();
    expected.bytes = 301;
    expected.action = TrashAction{{{"/a/one", 1, {}}, {"/c/three", 300, {}}}};
    EXPECT_EQ(keepingIgnored(threeParts(), {"/b"}), expected);
}

TEST(KeepingIgnored, LeavesAnItemUnchangedThatKeepsAllItsParts) {
    CleanupItem item = threeParts();
    item.bytes = 999;  // not the sum: an unchanged item is not added up again
    EXPECT_EQ(keepingIgnored(item, {"/d"}), item);
    EXPECT_EQ(keepingIgnored(item, {}), item);
}

TEST(KeepingIgnored, DropsAnItemThatLosesAllItsParts) {
    EXPECT_EQ(keepingIgnored(threeParts(), {"/a", "/b", "/c"}), std::nullopt);
    EXPECT_EQ(keepingIgnored(threeParts(), {"/"}), std::nullopt);
}

TEST(KeepingIgnored, LeavesCommandsAndItemsWithoutPartsAlone) {
    const CleanupItem command = commandItem("docker:images", 5, {"image", "prune"});
    EXPECT_EQ(keepingIgnored(command, {"/"}), command);
    const CleanupItem none = trashItem("none", Safety::safe, Parts{});
    EXPECT_EQ(keepingIgnored(none, {"/"}), none);
}

TEST(KeepingIgnored, KeepsTheOrderOfItems) {
    const std::vector<CleanupItem> items{trashItem("a", Safety::safe, 1),
                                         trashItem("b", Safety::safe, 2),
                                         trashItem("c", Safety::safe, 3)};
    EXPECT_THAT(idsOf(keepingIgnored(items, {"/x/b"})), ElementsAre("a", "c"));
}

TEST(KeepingIgnored, DropsSectionsWithoutItemsEvenWhereNothingIsIgnored) {
    const std::vector<DevSection> sections{devSection("dd", {}),
                                           devSection("sim", {trashItem("a", Safety::safe, 1)})};
    const auto kept = keepingIgnored(sections, {});
    ASSERT_THAT(kept, SizeIs(1));
    EXPECT_EQ(kept[0].id, "sim");
    EXPECT_THAT(keepingIgnored(sections, {"/x"}), IsEmpty());
}

InstalledApp editor() {
    return {.url = "/Applications/Editor.app",
            .name = "Editor",
            .parts = {{"Application", "/Applications/Editor.app", 10},
                      {"Caches", "/Users/sam/Library/Caches/Editor", 20},
                      {"Logs", "/Users/sam/Library/Logs/Editor", 30}}};
}

TEST(KeepingIgnored, TakesPartsOutOfAnApplication) {
    InstalledApp expected = editor();
    expected.parts.erase(expected.parts.begin() + 1);
    EXPECT_EQ(keepingIgnored(editor(), {"/Users/sam/Library/Caches"}), expected);
    EXPECT_EQ(keepingIgnored(editor(), {}), editor());
}

TEST(KeepingIgnored, DropsAnApplicationWhoseBundleIsCovered) {
    EXPECT_EQ(keepingIgnored(editor(), {"/Applications"}), std::nullopt);
}

}  // namespace
}  // namespace morvane
