#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "measure/folder_fold.h"
#include "measure/storage_scanner.h"

namespace morvane::StorageScanner {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

StorageNode leaf(const std::string& name, std::int64_t bytes) {
    return {.name = name,
            .url = std::filesystem::path("/f/" + name),
            .kind = StorageNode::Kind::file,
            .bytes = bytes};
}

StorageNode rest(std::int64_t bytes) {
    return {.name = "Other items",
            .url = std::nullopt,
            .kind = StorageNode::Kind::rest,
            .bytes = bytes};
}

std::vector<std::string> names(const StorageNode& node) {
    std::vector<std::string> result;
    for (const StorageNode& child : node.children) result.push_back(child.name);
    return result;
}

TEST(FolderNode, IsALeafBelowTenMillionBytes) {
    const StorageNode node = makeFolderNode("f", "/f", {leaf("a", 9'999'999)});
    EXPECT_EQ(node.name, "f");
    EXPECT_EQ(node.url, "/f");
    EXPECT_EQ(node.kind, StorageNode::Kind::folder);
    EXPECT_EQ(node.bytes, 9'999'999);
    EXPECT_THAT(node.children, IsEmpty());
}

TEST(FolderNode, KeepsItsChildrenFromTenMillionBytesOn) {
    const StorageNode node = makeFolderNode("f", "/f", {leaf("a", 1), leaf("b", 9'999'999)});
    EXPECT_EQ(node.bytes, 10'000'000);
    EXPECT_THAT(node.children, ElementsAre(leaf("b", 9'999'999), rest(1)));
}

TEST(FolderNode, KeepsThe24FirstOf30EqualChildren) {
    std::vector<StorageNode> children;
    std::vector<std::string> expected;
    for (int index = 0; index < 30; ++index) {
        children.push_back(leaf(std::to_string(index), 1'000'000));
        if (index < 24) expected.push_back(std::to_string(index));
    }
    expected.emplace_back("Other items");
    const StorageNode node = makeFolderNode("f", "/f", children);
    EXPECT_EQ(names(node), expected);
    EXPECT_EQ(node.children.back(), rest(6'000'000));
    EXPECT_EQ(node.bytes, 30'000'000);
}

TEST(FolderNode, KeepsOutAChildUnderAHundredth) {
    const StorageNode node = makeFolderNode(
        "f", "/f", {leaf("just", 100'000), leaf("under", 99'999), leaf("most", 9'800'001)});
    EXPECT_EQ(node.bytes, 10'000'000);
    EXPECT_THAT(node.children,
                ElementsAre(leaf("most", 9'800'001), leaf("just", 100'000), rest(99'999)));
}

TEST(FolderNode, CutsTheSmallestShareToAWholeNumber) {
    // A hundredth of 10,000,099 is 100,000.99.
    const StorageNode node =
        makeFolderNode("f", "/f", {leaf("most", 9'900'099), leaf("just", 100'000)});
    EXPECT_THAT(node.children, ElementsAre(leaf("most", 9'900'099), leaf("just", 100'000)));
}

TEST(FolderNode, IsALeafWithoutOtherItemsWhenNoChildReachesTheShare) {
    std::vector<StorageNode> children;
    for (int index = 0; index < 200; ++index) children.push_back(leaf("x", 100'000));
    const StorageNode node = makeFolderNode("f", "/f", children);
    EXPECT_EQ(node.bytes, 20'000'000);
    EXPECT_THAT(node.children, IsEmpty());
}

TEST(FolderNode, NeverKeepsAChildOfNoBytes) {
    const StorageNode node =
        makeFolderNode("f", "/f", {leaf("nothing", 0), leaf("all", 20'000'000)});
    EXPECT_THAT(node.children, ElementsAre(leaf("all", 20'000'000)));
}

TEST(FolderNode, PutsOtherItemsLastEvenWhenTheyAreTheLargest) {
    std::vector<StorageNode> children{leaf("kept", 1'000'000)};
    for (int index = 0; index < 600; ++index) children.push_back(leaf("x", 90'000));
    const StorageNode node = makeFolderNode("f", "/f", children);
    EXPECT_THAT(node.children, ElementsAre(leaf("kept", 1'000'000), rest(54'000'000)));
}

TEST(FolderNode, KeepsTheSubtreeOfAKeptChildAndDropsTheOthers) {
    const StorageNode inner = makeFolderNode("in", "/f/in", {leaf("a", 50'000'000)});
    const StorageNode small = makeFolderNode("small", "/f/small", {leaf("b", 10'000'000)});
    const StorageNode node = makeFolderNode("f", "/f", {small, inner, leaf("huge", 2'000'000'000)});
    EXPECT_THAT(node.children, ElementsAre(leaf("huge", 2'000'000'000), inner, rest(10'000'000)));
}

// The definition at full length: everything is held and sorted.
std::vector<StorageNode> keptByDefinition(std::vector<StorageNode> children) {
    std::int64_t total = 0;
    for (const StorageNode& child : children) total += child.bytes;
    if (total < 10'000'000) return {};
    std::stable_sort(
        children.begin(), children.end(),
        [](const StorageNode& left, const StorageNode& right) { return left.bytes > right.bytes; });
    std::vector<StorageNode> kept;
    std::int64_t left = 0;
    for (const StorageNode& child : children) {
        if (kept.size() < 24 && child.bytes >= 1 &&
            child.bytes >= static_cast<std::int64_t>(static_cast<double>(total) * 0.01)) {
            kept.push_back(child);
        } else {
            left += child.bytes;
        }
    }
    if (kept.empty()) return {};
    if (left > 0) kept.push_back(rest(left));
    return kept;
}

TEST(FolderNode, KeepsWhatTheFullSortedListWouldInWhateverOrderTheyCome) {
    std::mt19937 random(11);
    const std::int64_t ranges[] = {50'000, 400'000, 3'000'000, 900'000'000};
    for (int round = 0; round < 2'000; ++round) {
        std::vector<StorageNode> children;
        const std::int64_t range = ranges[random() % 4];
        const unsigned count = random() % 120;
        for (unsigned index = 0; index < count; ++index) {
            // Few different sizes, so that many are equal.
            const std::int64_t bytes = range / 10 * static_cast<std::int64_t>(random() % 11);
            children.push_back(leaf(std::to_string(index), bytes));
        }
        ASSERT_EQ(makeFolderNode("f", "/f", children).children, keptByDefinition(children))
            << "round " << round;
    }
}

TEST(FolderFold, MakesNoNodeForAChildThatCannotBeKept) {
    FolderFold fold;
    int made = 0;
    for (int index = 0; index < 500'000; ++index) {
        fold.add(99'999, [&made] {
            ++made;
            return leaf("x", 99'999);
        });
    }
    EXPECT_EQ(made, 0);
    EXPECT_EQ(fold.total(), 49'999'500'000);
    EXPECT_THAT(fold.takeKept(), IsEmpty());
}

}  // namespace
}  // namespace morvane::StorageScanner
