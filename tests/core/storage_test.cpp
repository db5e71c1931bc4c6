#include "core/store_test.h"

namespace morvane {
namespace {

using Kind = StorageNode::Kind;

constexpr auto systemVolumes =
    R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Containers</key><array><dict>)"
    R"(<key>Volumes</key><array><dict><key>Roles</key><array><string>System</string></array>)"
    R"(<key>CapacityInUse</key><integer>12000000000</integer></dict></array></dict></array></dict></plist>)";

class Storage : public StoreTest {
protected:
    Storage() {
        system.processes.answer({"/usr/sbin/diskutil", "apfs", "list", "-plist"},
                                {0, systemVolumes});
        files.addFile("/Applications/Editor.app/data", 60'000'000);
        files.addFile(home("Documents/a"), 300'000'000);
        files.addFile(home("work/b"), 100'000'000);
        files.addFile("/elsewhere/c", 999'000'000);
    }
    void scan(bool force = false) {
        state->scanStorage(force);
        finishWork();
    }
    [[nodiscard]] std::int64_t bytesOf(std::string_view name) const {
        for (const StorageNode& node : state->storageRoot().children) {
            if (node.name == name) return node.bytes;
        }
        return -1;
    }
};

TEST_F(Storage, IsMeasuredFromItsRoots) {
    grantAccess();
    start();
    state->scanStorage(false);
    EXPECT_TRUE(*state->isScanningStorage);
    EXPECT_EQ(state->disk->freeBytes, 100'000'000'000);
    finishWork();
    EXPECT_FALSE(*state->isScanningStorage);
    EXPECT_FALSE(*state->storageSkippedProtected);
    EXPECT_EQ(*state->storageScannedAt, system.now);
    EXPECT_EQ(*state->storageSystemBytes, 12'000'000'000);
    EXPECT_EQ(bytesOf("Users"), 400'004'096);
    EXPECT_EQ(bytesOf("Applications"), 60'000'000);
    EXPECT_EQ(bytesOf("System"), 12'000'000'000);
    EXPECT_EQ(bytesOf("System Data"), 387'539'995'904);
    EXPECT_EQ(bytesOf("Measuring…"), -1);
    EXPECT_EQ(state->storageRoot().bytes, 400'000'000'000);
    EXPECT_EQ(state->storageRoot().name, "Macintosh HD");
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Storage, WithoutAccessLeavesOutWhatIsProtectedAndSaysSo) {
    start();
    scan();
    EXPECT_TRUE(*state->storageSkippedProtected);
    EXPECT_EQ(bytesOf("Users"), 100'000'000);
    EXPECT_EQ(bytesOf("System Data"), 387'840'000'000);
    EXPECT_FALSE(files.wasAsked("walk /Users/sam/Documents"));
}

TEST_F(Storage, GrowsRootByRootTheFirstTime) {
    ThreadGate& gate = hold("walk", "/Users");
    start();
    state->scanStorage(false);
    runUntil([&] { return !state->storageFolders->empty(); });
    ASSERT_THAT(*state->storageFolders, SizeIs(1));
    EXPECT_EQ(state->storageFolders->front().name, "Applications");
    EXPECT_EQ(bytesOf("Measuring…"), 399'940'000'000);
    EXPECT_EQ(bytesOf("System Data"), -1);
    EXPECT_EQ(*state->storageScannedAt, std::nullopt);
    gate.open();
    finishWork();
    EXPECT_THAT(*state->storageFolders, SizeIs(2));
}

TEST_F(Storage, KeepsTheOldMapUntilARepeatedScanEnds) {
    start();
    scan();
    files.addFile("/Applications/Viewer.app/data", 40'000'000);
    ThreadGate& gate = hold("walk", "/Users");
    state->scanStorage(true);
    runUntilHeld(gate);
    loop.runReady();
    EXPECT_EQ(bytesOf("Applications"), 60'000'000);
    EXPECT_EQ(bytesOf("Measuring…"), 387'840'000'000);
    gate.open();
    finishWork();
    EXPECT_EQ(bytesOf("Applications"), 100'000'000);
}

TEST_F(Storage, IsNotMeasuredAgainWithinFiveMinutesNorItsFigures) {
    start();
    scan();
    system.volume.setFigures(VolumeFigures{"Macintosh HD", 900, 100, 100});
    loop.advance(300s - 1ns);
    scan();
    EXPECT_EQ(state->disk->totalBytes, 500'000'000'000);
    EXPECT_EQ(*state->storageScannedAt, system.now);
    loop.advance(1ns);
    scan();
    EXPECT_EQ(state->disk->totalBytes, 900);
    EXPECT_EQ(*state->storageScannedAt, system.now + 300s);
}

TEST_F(Storage, IsMeasuredOnceAtATime) {
    ThreadGate& gate = hold("walk", "/Users");
    start();
    state->scanStorage(true);
    state->scanStorage(true);
    gate.open();
    finishWork();
    EXPECT_EQ(timesAsked("walk /Users"), 1);
}

TEST_F(Storage, OfACancelledScanStaysAsItWas) {
    start();
    scan();
    const std::vector<StorageNode> former = *state->storageFolders;
    files.addFile("/Applications/Viewer.app/data", 40'000'000);
    ThreadGate& gate = hold("walk", "/Users");
    state->scanStorage(true);
    runUntilHeld(gate);
    loop.runReady();
    state->storageTask.cancel();
    loop.advance(1h);
    gate.open();
    finishWork();
    EXPECT_FALSE(*state->isScanningStorage);
    EXPECT_EQ(*state->storageFolders, former);
    EXPECT_EQ(*state->storageScannedAt, system.now);
}

TEST_F(Storage, FallsBackOnTheDisksSystemBytesWhereTheToolFails) {
    system.processes.answer({"/usr/sbin/diskutil", "apfs", "list", "-plist"}, {1, ""});
    start();
    DiskUsage disk;
    disk.systemBytes = 77;
    state->disk = disk;
    scan();
    EXPECT_EQ(*state->storageSystemBytes, 77);
    EXPECT_EQ(bytesOf("System"), 77);
}

TEST_F(Storage, LooksAtTheFreeSpaceAtItsEndToo) {
    ThreadGate& gate = hold("walk", "/Users");
    start();
    state->scanStorage(false);
    runUntilHeld(gate);
    loop.runReady();
    system.volume.setFigures(VolumeFigures{"Macintosh HD", 900, 100, 100});
    gate.open();
    finishWork();
    EXPECT_EQ(state->disk->totalBytes, 900);
    EXPECT_EQ(bytesOf("System Data"), -1);
    EXPECT_EQ(state->storageRoot().bytes, 12'160'000'000);
}

TEST_F(Storage, ShowsTheDeepestFolderOfItsPathThatIsStillThere) {
    start();
    scan();
    state->storagePath = Texts{"Users", "sam", "work"};
    Texts names;
    for (const StorageNode& node : state->storageChain()) names.push_back(node.name);
    EXPECT_THAT(names, ElementsAre("Macintosh HD", "Users", "sam", "work"));

    files.remove(home("work"));
    files.addFile(home("other/x"), 50'000'000);
    files.addFile(home("another/x"), 50'000'000);
    scan(true);
    names.clear();
    for (const StorageNode& node : state->storageChain()) names.push_back(node.name);
    EXPECT_THAT(names, ElementsAre("Macintosh HD", "Users", "sam"));
}

}  // namespace
}  // namespace morvane
