#include "removal/discard.h"

#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_files.h"
#include "support/fake_remover.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Discard : public testing::Test {
protected:
    fakes::FakeFiles files;
    fakes::FakeRemover remover{files, "/trash"};

    Discard() {
        files.addFile("/a", 1);
        files.addFile("/b", 2);
        files.addFile("/c", 3);
    }
};

TEST_F(Discard, MovesAllInOneCallAndTellsWhere) {
    const RemovalReport report = discard(remover, Disposal::trash, {{"/a"}, {"/b"}});
    EXPECT_THAT(remover.recycled, ElementsAre(ElementsAre("/a", "/b")));
    EXPECT_THAT(remover.removed, IsEmpty());
    EXPECT_THAT(report.trashed, ElementsAre(Pair("/a", "/trash/a"), Pair("/b", "/trash/b")));
    EXPECT_FALSE(report.error);
}

TEST_F(Discard, HandsOnTheErrorOfTheTrashAsItStands) {
    remover.immovable = {"/a"};
    const RemovalReport report = discard(remover, Disposal::trash, {{"/a"}, {"/b"}});
    EXPECT_THAT(report.trashed, ElementsAre(Pair("/b", "/trash/b")));
    EXPECT_EQ(report.error, failureFromErrno(EPERM, "/a"));
}

TEST_F(Discard, DeletesOutrightAndGoesOnAfterAFailure) {
    remover.immovable = {"/a", "/b"};
    const RemovalReport report = discard(remover, Disposal::outright, {{"/a"}, {"/b"}, {"/c"}});
    EXPECT_THAT(remover.removed, ElementsAre(ElementsAre("/a", "/b", "/c")));
    EXPECT_THAT(report.trashed, IsEmpty());
    EXPECT_EQ(report.error, failureFromErrno(EPERM, "/a"));
    EXPECT_TRUE(isGone(files, "/c"));
    EXPECT_FALSE(isGone(files, "/b"));
}

TEST_F(Discard, NamesEachTargetByPathAndFolder) {
    const FolderIdentity folder{3, 9};
    EXPECT_EQ(targetOf(CleanupPart{"/a", 1, folder}).path, "/a");
    EXPECT_EQ(targetOf(CleanupPart{"/a", 1, folder}).folder, folder);
    EXPECT_EQ(targetOf(AppPart{"Caches", "/b", 1, false, folder}).path, "/b");
    EXPECT_EQ(targetOf(AppPart{"Caches", "/b", 1, false, folder}).folder, folder);
    LargeFile file{.url = "/c", .folder = folder};
    EXPECT_EQ(targetOf(file).path, "/c");
    EXPECT_EQ(targetOf(file).folder, folder);
}

TEST_F(Discard, TakesForGoneOnlyWhatIsSeenToBe) {
    files.addLink("/dangling", "/nowhere");
    files.breakAttributes("/b");
    EXPECT_FALSE(isGone(files, "/a"));
    EXPECT_FALSE(isGone(files, "/b"));
    EXPECT_FALSE(isGone(files, "/dangling"));
    EXPECT_TRUE(isGone(files, "/missing"));
    EXPECT_TRUE(isGone(files, "/a/below/a/file"));
}

}  // namespace
}  // namespace morvane
