#include <gmock/gmock.h>

#include "collecting_visit.h"
#include "contract_disk.h"

namespace morvane {

namespace {

const Instant early(std::chrono::seconds(1'500'000'000));
const Instant late(std::chrono::seconds(1'700'000'000));

TEST_P(FileSystemContract, CountsHiddenFilesAndTheInsidesOfPackages) {
    disk->addFile("/folder/.hidden", 4'096);
    disk->addFile("/folder/.below/.hidden", 8'192);
    disk->addFile("/folder/Editor.app/Contents/Resources/icon", 16'384);
    EXPECT_EQ(size("/folder"), 28'672);
}

TEST_P(FileSystemContract, LinksInsideAddNothing) {
    disk->addFile("/big/file", 40'960);
    disk->addFile("/folder/file", 4'096);
    disk->addLink("/folder/to-folder", "/big");
    disk->addLink("/folder/to-file", "/big/file");
    disk->addLink("/folder/to-itself", ".");
    disk->addLink("/folder/up", "..");
    EXPECT_EQ(size("/folder"), 4'096);
}

TEST_P(FileSystemContract, ALinkAtTheTopIsFollowed) {
    disk->addFile("/big/file", 40'960);
    disk->addLink("/link", "/big");
    EXPECT_EQ(size("/link"), 40'960);
    Collected collected;
    ASSERT_TRUE(collect(files, "/link", {}, collected));
    EXPECT_TRUE(collected.has("/link/file"));
}

TEST_P(FileSystemContract, AnUnreadableSubfolderIsLeftOutQuietly) {
    disk->addFile("/folder/a", 4'096);
    disk->addFile("/folder/closed/b", 8'192);
    disk->addFile("/folder/closed/below/c", 8'192);
    disk->refuseReading("/folder/closed");
    EXPECT_EQ(size("/folder"), 4'096);
    EXPECT_EQ(size("/folder/closed"), 0);
    EXPECT_EQ(size("/folder/closed/below"), 0);

    Collected collected;
    ASSERT_TRUE(collect(files, "/folder", {}, collected));
    EXPECT_TRUE(collected.has("/folder/closed"));
    EXPECT_FALSE(collected.has("/folder/closed/b"));
    EXPECT_EQ(collected.entered, 1);
    EXPECT_EQ(collected.ended, 1);
    Collected none;
    EXPECT_FALSE(collect(files, "/folder/closed/below", {}, none));
    EXPECT_TRUE(none.entries.empty());
}

TEST_P(FileSystemContract, SaysWhetherTheFolderItselfCouldBeListed) {
    disk->addFile("/folder/closed/b", 8'192);
    disk->addFile("/folder/open/c", 8'192);
    disk->addLink("/link", "/folder/closed");
    disk->refuseReading("/folder/closed");
    const auto isUnreadable = [&](const char* path) {
        return files.treeSize(path, true, StopToken()).isUnreadable;
    };
    EXPECT_TRUE(isUnreadable("/folder/closed"));
    EXPECT_TRUE(isUnreadable("/link"));
    EXPECT_TRUE(isUnreadable("/none"));
    EXPECT_FALSE(isUnreadable("/folder"));
    EXPECT_FALSE(isUnreadable("/folder/open"));
}

TEST_P(FileSystemContract, WhatCannotBeOpenedIsOfNoSize) {
    disk->addFile("/file", 4'096);
    EXPECT_EQ(size("/none"), 0);
    EXPECT_EQ(size("/file"), 0);
    EXPECT_FALSE(files.treeSize("/none", true, StopToken()).newest);
    Collected collected;
    EXPECT_FALSE(collect(files, "/file", {}, collected));
    EXPECT_FALSE(collect(files, "/none", {}, collected));
}

TEST_P(FileSystemContract, TheNewestDateIsThatOfAFile) {
    disk->addFile("/folder/a", 0, early);
    disk->addFile("/folder/below/b", 0, late);
    disk->addFile("/folder/below/c", 0, early);
    EXPECT_EQ(files.treeSize("/folder", true, StopToken()).newest, late);
    disk->addFolder("/folders/only/folders");
    EXPECT_FALSE(files.treeSize("/folders", true, StopToken()).newest);
}

TEST_P(FileSystemContract, TellsEachEntryOnceWithWhatWasAskedFor) {
    disk->addFile("/top/a.zip", 4'096, early);
    disk->addFile("/top/.tool", 8'192, late);
    disk->setExecutable("/top/.tool");
    disk->addFolder("/top/empty");
    disk->addFile("/top/Editor.app/Contents/binary", 12'288, late);
    disk->addLink("/top/link", "/");
    disk->addPipe("/top/pipe");

    Collected collected;
    ASSERT_TRUE(collect(files, "/top", {.dates = true, .executable = true}, collected));
    EXPECT_EQ(collected.entries.size(), 8U);
    EXPECT_TRUE(collected.isEachOnce());
    EXPECT_EQ(collected.entered, 3);
    EXPECT_EQ(collected.ended, 3);

    const WalkedEntry& file = collected.at("/top/a.zip");
    EXPECT_EQ(file.kind, EntryKind::file);
    EXPECT_TRUE(file.hasAttributes);
    EXPECT_EQ(file.allocatedBytes, 4'096);
    EXPECT_EQ(file.modified, early);
    EXPECT_FALSE(file.isExecutable || file.isHidden || file.isPackage);
    EXPECT_TRUE(collected.at("/top/.tool").isHidden);
    EXPECT_TRUE(collected.at("/top/.tool").isExecutable);
    EXPECT_EQ(collected.at("/top/Editor.app/Contents/binary").allocatedBytes, 12'288);
    EXPECT_EQ(collected.at("/top/Editor.app").kind, EntryKind::folder);
    EXPECT_FALSE(collected.at("/top/Editor.app").hasAttributes);
    EXPECT_EQ(collected.at("/top/link").kind, EntryKind::link);
    EXPECT_FALSE(collected.at("/top/link").hasAttributes);
    EXPECT_EQ(collected.at("/top/pipe").kind, EntryKind::other);
}

TEST_P(FileSystemContract, TellsNoDatesThatNobodyAskedFor) {
    disk->addFile("/top/a", 4'096, early);
    Collected collected;
    ASSERT_TRUE(collect(files, "/top", {}, collected));
    EXPECT_FALSE(collected.at("/top/a").modified);
    EXPECT_FALSE(collected.at("/top/a").created);
}

TEST_P(FileSystemContract, AsksLinksAndTheRestWhereItIsWanted) {
    disk->addLink("/top/link", "/nowhere");
    disk->addPipe("/top/pipe");
    Collected collected;
    ASSERT_TRUE(collect(files, "/top", {.links = true}, collected));
    EXPECT_TRUE(collected.at("/top/link").hasAttributes);
    EXPECT_TRUE(collected.at("/top/pipe").hasAttributes);
}

TEST_P(FileSystemContract, LeavesOutWhatIsNotEntered) {
    disk->addFile("/top/in/a", 4'096);
    disk->addFile("/top/.out/b", 4'096);
    Collected collected;
    collected.goesInto = [](const WalkedEntry& entry) { return !entry.isHidden; };
    ASSERT_TRUE(collect(files, "/top", {}, collected));
    EXPECT_TRUE(collected.has("/top/in/a"));
    EXPECT_TRUE(collected.has("/top/.out"));
    EXPECT_FALSE(collected.has("/top/.out/b"));
    EXPECT_EQ(collected.ended, 1);
}

TEST_P(FileSystemContract, TheWholeDiskIsWalkedFromItsTop) {
    disk->addFile("/Users/sam/a", 4'096);
    Collected collected;
    ASSERT_TRUE(collect(files, "/", {}, collected));
    EXPECT_TRUE(collected.has("/Users/sam/a"));
    EXPECT_EQ(size("/"), 4'096);
}

TEST_P(FileSystemContract, NamesTheFoldersItIsIn) {
    disk->addFile("/top/below/a", 0);
    Collected collected;
    ASSERT_TRUE(collect(files, "/top", {}, collected));
    EXPECT_EQ(collected.folders.at("/top/below"), files.attributes("/top/below/a")->folder);
    EXPECT_EQ(collected.folders.at("/top"), files.attributes("/top/below")->folder);
}

TEST_P(FileSystemContract, AStoppedWalkEndsTheVisitsItBegan) {
    for (int number = 0; number < 30; ++number) {
        disk->addFile("/top/" + std::to_string(number) + "/below/file", 0);
    }
    const StopSource source;
    Collected collected;
    collected.meanwhile = [&](const WalkedFolder& folder) {
        if (folder.path() != "/top") source.request_stop();
    };
    CollectingVisit visit(collected);
    EXPECT_TRUE(files.walk("/top", {}, visit, source.get_token()));
    EXPECT_GT(collected.entered, 0);
    EXPECT_EQ(collected.entered, collected.ended);
    EXPECT_LT(collected.entered, 60);
}

}  // namespace

}  // namespace morvane
