#include "measure/storage_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace morvane::StorageScanner {
namespace {

using testing::ElementsAre;
using Kind = StorageNode::Kind;

StorageNode folder(const std::string& name, std::int64_t bytes,
                   std::vector<StorageNode> children = {}) {
    return {.name = name,
            .url = std::filesystem::path("/" + name),
            .kind = Kind::folder,
            .bytes = bytes,
            .children = std::move(children)};
}

StorageNode synthetic(const std::string& name, Kind kind, std::int64_t bytes) {
    return {.name = name, .url = std::nullopt, .kind = kind, .bytes = bytes};
}

DiskUsage disk(std::int64_t total, std::int64_t free) {
    DiskUsage usage;
    usage.volumeName = "Mac";
    usage.totalBytes = total;
    usage.freeBytes = free;
    usage.purgeableBytes = 40;
    return usage;
}

TEST(StorageRoot, AddsUpToAllThatIsNotFreePurgeableRoomIncluded) {
    const StorageNode root = storageRoot(disk(500, 100), {folder("Users", 200)}, 50, false);
    EXPECT_EQ(root.name, "Mac");
    EXPECT_EQ(root.url, "/");
    EXPECT_EQ(root.kind, Kind::folder);
    EXPECT_EQ(root.bytes, 400);
    EXPECT_THAT(root.children,
                ElementsAre(folder("Users", 200), synthetic("System", Kind::system, 50),
                            synthetic("System Data", Kind::systemData, 150)));
}

TEST(StorageRoot, ShowsTheRemainderAsMeasuringWhileAScanRuns) {
    const StorageNode root = storageRoot(disk(500, 100), {}, std::nullopt, true);
    EXPECT_THAT(root.children, ElementsAre(synthetic("Measuring…", Kind::pending, 400)));
    EXPECT_EQ(root.bytes, 400);
}

TEST(StorageRoot, SortsTheFoldersAndPutsTheSystemBehindThem) {
    const StorageNode root = storageRoot(
        disk(1000, 0), {folder("opt", 5), folder("Library", 0), folder("Users", 9)}, 986, false);
    EXPECT_THAT(root.children, ElementsAre(folder("Users", 9), folder("opt", 5),
                                           synthetic("System", Kind::system, 986)));
}

TEST(StorageRoot, TakesTheLargerSumWhenTheFoldersHoldMoreThanIsUsed) {
    const StorageNode root = storageRoot(disk(500, 400), {folder("Users", 300)}, 20, true);
    EXPECT_EQ(root.bytes, 320);
    EXPECT_THAT(root.children,
                ElementsAre(folder("Users", 300), synthetic("System", Kind::system, 20)));
}

TEST(StorageRoot, HasNoSystemWhereItsSizeIsUnknownOrNothing) {
    EXPECT_TRUE(storageRoot(disk(0, 0), {}, 0, false).children.empty());
    EXPECT_TRUE(storageRoot(disk(0, 0), {}, std::nullopt, false).children.empty());
}

TEST(StorageRoot, UsesNothingWhenMoreIsFreeThanThereIs) {
    EXPECT_EQ(storageRoot(disk(100, 200), {}, std::nullopt, false).bytes, 0);
}

class StorageChain : public testing::Test {
protected:
    StorageNode root =
        folder("Mac", 100,
               {folder("Users", 60, {folder("sam", 50, {folder("Movies", 40), folder("big", 10)})}),
                folder("opt", 5)});

    std::vector<std::string> names(const std::vector<std::string>& path) const {
        std::vector<std::string> result;
        for (const StorageNode* node : storageChain(root, path)) result.push_back(node->name);
        return result;
    }
};

TEST_F(StorageChain, LeadsFromTheRootToTheFolderOnView) {
    EXPECT_THAT(names({}), ElementsAre("Mac"));
    EXPECT_THAT(names({"Users", "sam"}), ElementsAre("Mac", "Users", "sam"));
}

TEST_F(StorageChain, FallsBackToTheDeepestFolderStillThere) {
    EXPECT_THAT(names({"Users", "kim", "Movies"}), ElementsAre("Mac", "Users"));
    EXPECT_THAT(names({"Volumes", "sam"}), ElementsAre("Mac"));
}

TEST_F(StorageChain, NeverEndsOnALeaf) {
    EXPECT_THAT(names({"opt"}), ElementsAre("Mac"));
    EXPECT_THAT(names({"Users", "sam", "Movies"}), ElementsAre("Mac", "Users", "sam"));
}

}  // namespace
}  // namespace morvane::StorageScanner
