#include "measure/storage_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "measure/disk_tree.h"

namespace morvane::StorageScanner {
namespace {

using test::file;
using test::folder;
using test::link;
using test::package;
using test::TreeMac;
using test::unreadable;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = StorageNode::Kind;

constexpr std::int64_t MB = 1'000'000;

StorageNode scan(const TreeMac& mac, const std::set<std::string>& skipped = {},
                 const StopToken& token = {}) {
    return scanRoot(mac.platform, "/Users", skipped, token);
}

StorageNode node(const std::string& name, const std::string& url, Kind kind, std::int64_t bytes,
                 std::vector<StorageNode> children = {}) {
    return {.name = name,
            .url = std::filesystem::path(url),
            .kind = kind,
            .bytes = bytes,
            .children = std::move(children)};
}

TEST(StorageRoots, AreThoseThatExistInTheirOrder) {
    const TreeMac all({folder("opt", {}), folder("Library", {}), folder("Applications", {}),
                       folder("Users", {}), folder("usr", {})});
    EXPECT_THAT(roots(all.platform), ElementsAre("/Users", "/Applications", "/Library", "/opt"));
    const TreeMac few({folder("Library", {}), folder("Users", {})});
    EXPECT_THAT(roots(few.platform), ElementsAre("/Users", "/Library"));
}

TEST(ProtectedFolders, LieBelowTheHomeFolder) {
    const std::set<std::string> folders = protectedFolders("/Users/sam/");
    EXPECT_EQ(folders.size(), 20U);
    EXPECT_TRUE(folders.contains("/Users/sam/Desktop"));
    EXPECT_TRUE(folders.contains("/Users/sam/Library/Application Support/com.apple.TCC"));
}

TEST(StorageScan, NamesAndPlacesEveryNode) {
    const TreeMac mac(
        {folder("Users", {folder("sam", {file("a.mov", 30 * MB)}), file("b.iso", 20 * MB)})});
    EXPECT_EQ(scan(mac), node("Users", "/Users", Kind::folder, 50 * MB,
                              {node("sam", "/Users/sam", Kind::folder, 30 * MB,
                                    {node("a.mov", "/Users/sam/a.mov", Kind::file, 30 * MB)}),
                               node("b.iso", "/Users/b.iso", Kind::file, 20 * MB)}));
}

TEST(StorageScan, FoldsAFolderBelowTenMillionBytesAndKeepsTheChildrenOfOneOfTenMillion) {
    const TreeMac mac({folder("Users", {folder("small", {file("a", 9'999'999)}),
                                        folder("large", {file("b", 10'000'000)})})});
    EXPECT_EQ(scan(mac), node("Users", "/Users", Kind::folder, 19'999'999,
                              {node("large", "/Users/large", Kind::folder, 10'000'000,
                                    {node("b", "/Users/large/b", Kind::file, 10'000'000)}),
                               node("small", "/Users/small", Kind::folder, 9'999'999)}));
}

TEST(StorageScan, CountsHiddenItems) {
    const TreeMac mac({folder("Users", {folder(".cache", {file(".x", 10 * MB)})})});
    EXPECT_EQ(scan(mac).bytes, 10 * MB);
}

TEST(StorageScan, AddsNothingForALinkToAHugeFolder) {
    const TreeMac mac({folder("Users", {link("huge", 4096), file("a", 10 * MB)})});
    EXPECT_EQ(scan(mac), node("Users", "/Users", Kind::folder, 10 * MB,
                              {node("a", "/Users/a", Kind::file, 10 * MB)}));
}

TEST(StorageScan, DoesNotLeaveTheDiskThroughAMountPoint) {
    const TreeMac mac({folder("Users", {with(folder("backup", {file("a", 50 * MB)}),
                                             [](Attributes& it) { it.isVolume = true; }),
                                        with(package("image.sparsebundle", {file("a", 50 * MB)}),
                                             [](Attributes& it) { it.isVolume = true; })})});
    EXPECT_EQ(scan(mac), node("Users", "/Users", Kind::folder, 0));
}

TEST(StorageScan, MeasuresAPackageWholeAsOneFile) {
    const TreeMac mac({folder(
        "Users", {package("Film.app", {file("main", 4 * MB),
                                       folder("Contents", {file("data", 5 * MB), link("l", MB),
                                                           package("In.app", {file("x", MB)})})}),
                  package("Trip.photoslibrary", {file("db", 3 * MB)})})});
    EXPECT_EQ(scan(mac),
              node("Users", "/Users", Kind::folder, 13 * MB,
                   {node("Film", "/Users/Film.app", Kind::file, 10 * MB),
                    node("Trip.photoslibrary", "/Users/Trip.photoslibrary", Kind::file, 3 * MB)}));
}

TEST(StorageScan, KeepsTheExtensionOfAPlainFileNamedLikeAnApp) {
    const TreeMac mac({folder("Users", {file("Old.app", 10 * MB)})});
    EXPECT_THAT(scan(mac).children,
                ElementsAre(node("Old.app", "/Users/Old.app", Kind::file, 10 * MB)));
}

TEST(StorageScan, CountsPipesAndDevicesByTheirOwnBlocks) {
    const TreeMac mac({folder(
        "Users", {with(file("pipe", MB), [](Attributes& it) { it.kind = EntryKind::other; }),
                  file("a", 10 * MB)})});
    EXPECT_EQ(scan(mac).bytes, 11 * MB);
}

TEST(StorageScan, LeavesOutWhatIsProtectedAndNothingElse) {
    const TreeMac mac({folder(
        "Users", {folder("sam", {folder("Desktop", {file("a", 10 * MB)}),
                                 folder("Desktop 2", {file("b", 20 * MB)}),
                                 folder("Library", {folder("Mail", {file("c", 40 * MB)}),
                                                    folder("Caches", {file("d", 80 * MB)})})}),
                  folder("kim", {folder("Desktop", {file("e", 160 * MB)})})})});
    const StorageNode found = scan(mac, protectedFolders("/Users/sam"));
    EXPECT_EQ(found.bytes, 260 * MB);
    EXPECT_EQ(scan(mac).bytes, 310 * MB);
}

TEST(StorageScan, LeavesOutAProtectedPathThatIsAFile) {
    const TreeMac mac({folder("Users", {folder("sam", {file("Desktop", 10 * MB)})})});
    EXPECT_EQ(scan(mac, protectedFolders("/Users/sam")).bytes, 0);
}

TEST(StorageScan, TakesAnUnreadableFolderForEmpty) {
    const TreeMac mac(
        {folder("Users", {unreadable(folder("root", {file("a", 10 * MB)})), file("b", 10 * MB)}),
         unreadable(folder("Library", {file("c", MB)}))});
    EXPECT_EQ(scan(mac).bytes, 10 * MB);
    EXPECT_EQ(scanRoot(mac.platform, "/Library", {}, {}),
              node("Library", "/Library", Kind::folder, 0));
    EXPECT_EQ(scanRoot(mac.platform, "/gone", {}, {}), node("gone", "/gone", Kind::folder, 0));
}

TEST(StorageScan, ShowsNamesThatAreNotUTF8AsText) {
    const TreeMac mac({folder(
        "Users", {package("caf\xe9.app", {file("a", 10 * MB)}), file("line\nbreak", 20 * MB)})});
    EXPECT_THAT(scan(mac).children,
                ElementsAre(node("line\nbreak", "/Users/line\nbreak", Kind::file, 20 * MB),
                            node("caf%E9", "/Users/caf\xe9.app", Kind::file, 10 * MB)));
}

TEST(StorageScan, GivesWhatItHasOnceItIsCancelled) {
    TreeMac mac({folder("Users", {folder("a", {file("x", 10 * MB)}), folder("b", {file("y", MB)}),
                                  folder("c", {file("z", MB)})})});
    const StopSource stop;
    mac.files.watch([&stop](std::string_view, const std::filesystem::path& path) {
        if (path == "/Users/b") stop.request_stop();
    });
    EXPECT_EQ(scan(mac, {}, stop.get_token()),
              node("Users", "/Users", Kind::folder, 10 * MB,
                   {node("a", "/Users/a", Kind::folder, 10 * MB,
                         {node("x", "/Users/a/x", Kind::file, 10 * MB)})}));
}

TEST(StorageScan, ReachesTheBottomOfAVeryDeepChainAndDrawsTheUppermostLevels) {
    test::Item chain = file("deep", 10 * MB);
    for (int level = 0; level < 600; ++level) chain = folder("d", {std::move(chain)});
    const TreeMac mac({folder("Users", {std::move(chain)})});
    const StorageNode found = scan(mac);
    EXPECT_EQ(found.bytes, 10 * MB);
    int levels = 0;
    const StorageNode* last = &found;
    for (; !last->children.empty(); last = &last->children.front()) ++levels;
    EXPECT_EQ(levels, 512);
    EXPECT_EQ(last->kind, Kind::folder);
    EXPECT_EQ(last->bytes, 10 * MB);
}

TEST(StorageEntry, IsWhatTheWalkMakesOfIt) {
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::link}), Entry::skipped);
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::folder, .isVolume = true}), Entry::skipped);
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::folder}), Entry::folder);
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::folder, .isPackage = true}), Entry::bundle);
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::file}), Entry::item);
    EXPECT_EQ(classify({.name = "a", .kind = EntryKind::other}), Entry::item);
}

}  // namespace
}  // namespace morvane::StorageScanner
