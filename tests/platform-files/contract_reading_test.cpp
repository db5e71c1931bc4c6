#include <cerrno>
#include <gmock/gmock.h>

#include "contract_disk.h"

namespace morvane {

namespace {

using testing::UnorderedElementsAre;

std::vector<std::string> names(const Result<std::vector<ListedEntry>>& listed) {
    std::vector<std::string> found;
    if (!listed.ok()) return {"failed"};
    for (const ListedEntry& entry : *listed) found.push_back(entry.path.native());
    return found;
}

TEST_P(FileSystemContract, DescribesAFile) {
    const Instant then(std::chrono::seconds(1'600'000'000));
    disk->addFile("/Users/sam/a.zip", 8'192, then);
    const auto found = files.attributes("/Users/sam/a.zip");
    ASSERT_TRUE(found.ok());
    EXPECT_EQ(found->kind, EntryKind::file);
    EXPECT_EQ(found->allocatedBytes, 8'192);
    EXPECT_EQ(found->modified, then);
    EXPECT_FALSE(found->isExecutable);
    EXPECT_FALSE(found->isHidden);
    EXPECT_FALSE(found->isPackage);
    EXPECT_TRUE(found->folder.isKnown());
}

TEST_P(FileSystemContract, NamesTheFolderAnItemLiesInThroughLinksToo) {
    disk->addFile("/Users/sam/Caches/a", 4'096);
    disk->addFile("/Users/sam/b", 4'096);
    disk->addLink("/Users/sam/link", "Caches");
    const auto direct = files.attributes("/Users/sam/Caches/a");
    const auto linked = files.attributes("/Users/sam/link/a");
    const auto other = files.attributes("/Users/sam/b");
    ASSERT_TRUE(direct.ok() && linked.ok() && other.ok());
    EXPECT_EQ(direct->folder, linked->folder);
    EXPECT_NE(direct->folder, other->folder);
}

TEST_P(FileSystemContract, DescribesALinkItself) {
    disk->addFile("/target", 40'960);
    disk->addLink("/link", "/target");
    const auto found = files.attributes("/link");
    ASSERT_TRUE(found.ok());
    EXPECT_EQ(found->kind, EntryKind::link);
    EXPECT_LT(found->allocatedBytes, 40'960);
}

TEST_P(FileSystemContract, KnowsPackagesHiddenAndExecutableItems) {
    disk->addFile("/Applications/Editor.app/Contents/MacOS/Editor", 4'096);
    disk->setExecutable("/Applications/Editor.app/Contents/MacOS/Editor");
    disk->addFile("/Applications/.hidden", 0);
    disk->addFile("/Applications/file.app", 0);
    EXPECT_TRUE(files.attributes("/Applications/.hidden")->isHidden);
    EXPECT_TRUE(files.attributes("/Applications/Editor.app/Contents/MacOS/Editor")->isExecutable);
    EXPECT_FALSE(files.attributes("/Applications")->isExecutable);
}

TEST_P(FileSystemContract, TellsWhyThereAreNoAttributes) {
    disk->addFile("/file", 0);
    EXPECT_EQ(files.attributes("/none").failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(files.attributes("/file/below").failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(files.attributes("/none").failure().path, "/none");
}

TEST_P(FileSystemContract, PresenceIsOfTheItemItself) {
    disk->addFile("/file", 0);
    disk->addLink("/dangling", "/nowhere");
    disk->addLink("/loop", "/loop");
    EXPECT_EQ(files.presence("/file"), Presence::there);
    EXPECT_EQ(files.presence("/dangling"), Presence::there);
    EXPECT_EQ(files.presence("/loop"), Presence::there);
    EXPECT_EQ(files.presence("/none"), Presence::gone);
    EXPECT_EQ(files.presence("/none/below"), Presence::gone);
    EXPECT_EQ(files.presence("/file/below"), Presence::gone);
    EXPECT_EQ(files.presence("/dangling/below"), Presence::gone);
    EXPECT_EQ(files.presence("/loop/below"), Presence::gone);
}

TEST_P(FileSystemContract, ExistsFollowsLinksAtTheEnd) {
    disk->addFile("/file", 0);
    disk->addLink("/link", "/file");
    disk->addLink("/dangling", "/nowhere");
    EXPECT_TRUE(files.exists("/file"));
    EXPECT_TRUE(files.exists("/link"));
    EXPECT_FALSE(files.exists("/dangling"));
    EXPECT_FALSE(files.exists("/none"));
}

TEST_P(FileSystemContract, AnExecutableFileIsAFile) {
    disk->addFile("/bin/tool", 0);
    disk->setExecutable("/bin/tool");
    disk->addFile("/bin/text", 0);
    disk->addLink("/bin/link", "tool");
    EXPECT_TRUE(files.isExecutableFile("/bin/tool"));
    EXPECT_TRUE(files.isExecutableFile("/bin/link"));
    EXPECT_FALSE(files.isExecutableFile("/bin/text"));
    EXPECT_FALSE(files.isExecutableFile("/bin"));
    EXPECT_FALSE(files.isExecutableFile("/bin/none"));
}

TEST_P(FileSystemContract, ListsWithAndWithoutHiddenItems) {
    disk->addFile("/Users/sam/a", 0);
    disk->addFile("/Users/sam/.b", 0);
    disk->addFolder("/Users/sam/c");
    disk->addFile("/Users/sam/c/below", 0);
    EXPECT_THAT(names(files.list("/Users/sam", Hidden::included)),
                UnorderedElementsAre("/Users/sam/a", "/Users/sam/.b", "/Users/sam/c"));
    EXPECT_THAT(names(files.list("/Users/sam", Hidden::skipped)),
                UnorderedElementsAre("/Users/sam/a", "/Users/sam/c"));
}

TEST_P(FileSystemContract, ListsALinkedFolderInTheTermsOfThePathAsked) {
    disk->addFile("/Volumes/Data/a", 4'096);
    disk->addLink("/link", "/Volumes/Data");
    const auto listed = files.list("/link", Hidden::included);
    ASSERT_THAT(names(listed), UnorderedElementsAre("/link/a"));
    EXPECT_EQ(listed->front().attributes.allocatedBytes, 4'096);
    EXPECT_EQ(listed->front().attributes.folder, files.attributes("/link/a")->folder);
}

TEST_P(FileSystemContract, NamesAreThoseOfAListing) {
    disk->addFile("/Users/sam/a", 0);
    disk->addFile("/Users/sam/.b", 0);
    disk->addLink("/home", "/Users/sam");
    disk->addFile("/refused/a", 0);
    disk->refuseReading("/refused");
    const auto found = files.names("/home");
    ASSERT_TRUE(found.ok());
    EXPECT_THAT(*found, UnorderedElementsAre("a", ".b"));
    EXPECT_EQ(files.names("/none").failure().kind, Failure::Kind::notFound);
    EXPECT_EQ(files.names("/refused").failure().kind, Failure::Kind::notAllowed);
    EXPECT_FALSE(files.names("/Users/sam/a").ok());
}

TEST_P(FileSystemContract, AFailedListingIsNoEmptyFolder) {
    disk->addFile("/file", 0);
    disk->addFolder("/empty");
    EXPECT_EQ(files.list("/none", Hidden::included).failure().kind, Failure::Kind::notFound);
    EXPECT_FALSE(files.list("/file", Hidden::included).ok());
    EXPECT_TRUE(files.list("/empty", Hidden::included).ok());
    EXPECT_TRUE(files.list("/empty", Hidden::included)->empty());
}

TEST_P(FileSystemContract, ReadsAFileOfAtMostTheLimit) {
    disk->addContents("/text", "hello");
    disk->addContents("/nothing", "");
    disk->addLink("/link", "text");
    EXPECT_EQ(*files.readFile("/text", 5), "hello");
    EXPECT_EQ(*files.readFile("/link", 100), "hello");
    EXPECT_EQ(*files.readFile("/nothing", 0), "");
    EXPECT_EQ(files.readFile("/text", 4).failure().kind, Failure::Kind::failed);
    EXPECT_EQ(files.readFile("/none", 5).failure().kind, Failure::Kind::notFound);
}

TEST_P(FileSystemContract, ReadsNothingButFiles) {
    disk->addFolder("/folder");
    disk->addPipe("/pipe");
    EXPECT_FALSE(files.readFile("/folder", 1'000).ok());
    EXPECT_FALSE(files.readFile("/pipe", 1'000).ok());
}

TEST_P(FileSystemContract, AProbeOpensFilesAndFoldersAlone) {
    disk->addFile("/file", 0);
    disk->addFolder("/folder");
    disk->addPipe("/pipe");
    disk->addFile("/refused/file", 0);
    disk->refuseReading("/refused");
    EXPECT_EQ(files.probe("/file"), Probe::opened);
    EXPECT_EQ(files.probe("/folder"), Probe::opened);
    EXPECT_EQ(files.probe("/pipe"), Probe::failed);
    EXPECT_EQ(files.probe("/none"), Probe::failed);
    EXPECT_EQ(files.probe("/refused"), Probe::refused);
    EXPECT_EQ(files.probe("/refused/file"), Probe::refused);
}

TEST_P(FileSystemContract, RefusesToReadButNotToDescribe) {
    disk->addContents("/Library/Mail/inbox", "mail");
    disk->refuseReading("/Library/Mail");
    for (const auto* path : {"/Library/Mail", "/Library/Mail/inbox"}) {
        EXPECT_TRUE(files.attributes(path).ok()) << path;
        EXPECT_EQ(files.presence(path), Presence::there) << path;
        EXPECT_TRUE(files.exists(path)) << path;
    }
    const Failure refused = files.list("/Library/Mail", Hidden::included).failure();
    EXPECT_EQ(refused.kind, Failure::Kind::notAllowed);
    EXPECT_EQ(refused.code, EPERM);
    EXPECT_EQ(files.readFile("/Library/Mail/inbox", 100).failure().kind, Failure::Kind::notAllowed);
}

TEST_P(FileSystemContract, ShowsTheNameOfAnItem) {
    EXPECT_EQ(files.displayName("/Applications/Editor.app"), "Editor.app");
    EXPECT_EQ(files.displayName("/Users/sam/not there"), "not there");
}

}  // namespace

}  // namespace morvane
