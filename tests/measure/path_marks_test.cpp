#include "measure/path_marks.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(PathMarks, AreFoundOneNameAtATime) {
    const MarkedPaths marked("/Users", {"/Users/sam/Library/Mail", "/Users/sam/Desktop"});
    const PathMarks users = marked.marks();
    EXPECT_FALSE(users.contains("sam"));
    const PathMarks sam = users.below("sam");
    EXPECT_TRUE(sam.contains("Desktop"));
    EXPECT_FALSE(sam.contains("Library"));
    EXPECT_TRUE(sam.below("Library").contains("Mail"));
    EXPECT_TRUE(sam.below("Desktop").isEmpty());
}

TEST(PathMarks, DoNotTakeANameForALongerOne) {
    const MarkedPaths marked("/a", {"/a/Foo/x"});
    const PathMarks marks = marked.marks();
    EXPECT_TRUE(marks.below("Fo").isEmpty());
    EXPECT_TRUE(marks.below("Foobar").isEmpty());
    EXPECT_TRUE(marks.below("Foo").contains("x"));
}

TEST(PathMarks, LeaveOutWhatDoesNotLieBelow) {
    const MarkedPaths marked("/a/b", {"/a", "/a/b", "/a/bc", "/d"});
    EXPECT_TRUE(marked.marks().isEmpty());
}

TEST(PathMarks, CompareStandardPaths) {
    const MarkedPaths marked("/a/./b/", {"/a//b/c/../d/"});
    EXPECT_TRUE(marked.marks().contains("d"));
    const MarkedPaths top("/", {"/opt"});
    EXPECT_TRUE(top.marks().contains("opt"));
}

}  // namespace
}  // namespace morvane
