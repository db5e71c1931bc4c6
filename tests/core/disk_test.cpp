#include "core/store_test.h"
#include "measure/disk_usage.h"

namespace morvane {
namespace {

using enum DiskCategory;
using Data = MemoryDefaults::Data;

constexpr auto systemVolumes =
    R"(<?xml version="1.0"?><plist version="1.0"><dict><key>Containers</key><array><dict>)"
    R"(<key>ContainerReference</key><string>disk3</string><key>Volumes</key><array><dict>)"
    R"(<key>Roles</key><array><string>System</string></array>)"
    R"(<key>CapacityInUse</key><integer>12000000000</integer></dict></array></dict></array></dict></plist>)";

class Disk : public StoreTest {
protected:
    Disk() {
        files.addFile("/Applications/Editor.app/Contents/MacOS/Editor", 1'000);
        files.addFile(home("Applications/Viewer.app/data"), 200);
        files.addFile(home("Pictures/a.jpg"), 30);
        files.addFile(home("Movies/.hidden"), 4);
        files.addFile(home("Documents/a.txt"), 5);
        files.addFile(home("Downloads/b.txt"), 60);
        files.addFile(home(".npm/c"), 7);
        files.addFile(home("go/d"), 80);
        files.addFile(home("Music/song.m4a"), 999);
        system.processes.answer({"/usr/sbin/diskutil", "apfs", "list", "-plist"},
                                {0, systemVolumes});
    }
    void refresh() {
        state->refreshDisk();
        finishWork();
    }
};

TEST_F(Disk, StartsFromAnEmptyRecord) {
    start();
    EXPECT_EQ(*state->disk, (DiskUsage{"Macintosh HD", 0, 0, 0, {}, {}, {}, false}));
    EXPECT_THAT(state->slices(), IsEmpty());
}

TEST_F(Disk, TakesTheVolumesFiguresAtOnce) {
    start();
    state->refreshFreeSpace();
    EXPECT_EQ(
        *state->disk,
        (DiskUsage{
            "Macintosh HD", 500'000'000'000, 100'000'000'000, 20'000'000'000, {}, {}, {}, false}));
    EXPECT_TRUE(state->isIdle());
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Disk, KeepsTheRestOfTheRecordWhenTheFiguresChange) {
    start();
    state->disk = DiskUsage{"Old", 1, 2, 3, 4, {{apps, 5}}, {media}, true};
    state->refreshFreeSpace();
    EXPECT_EQ(*state->disk, (DiskUsage{"Macintosh HD",
                                       500'000'000'000,
                                       100'000'000'000,
                                       20'000'000'000,
                                       4,
                                       {{apps, 5}},
                                       {media},
                                       true}));
}

TEST_F(Disk, IsNotWrittenWhereNothingDiffers) {
    start();
    state->refreshFreeSpace();
    loop.runReady();
    int told = 0;
    const auto subscription = state->store().observe([&](const ChangedFields&) { ++told; });
    state->refreshFreeSpace();
    loop.runReady();
    EXPECT_EQ(told, 0);
}

TEST_F(Disk, StaysAsItWasWhenTheVolumeDoesNotAnswer) {
    start();
    state->refreshFreeSpace();
    const DiskUsage former = *state->disk;
    for (const VolumeFigures& figures :
         {VolumeFigures{"X", {}, 5, 6}, VolumeFigures{"X", 5, {}, 6}}) {
        system.volume.setFigures(figures);
        state->refreshFreeSpace();
        EXPECT_EQ(*state->disk, former);
    }
    system.volume.setFigures(std::nullopt);
    state->refreshFreeSpace();
    EXPECT_EQ(*state->disk, former);
}

TEST_F(Disk, MeasuresEveryCategoryWithAccess) {
    grantAccess();
    start();
    refresh();
    EXPECT_EQ(*state->disk,
              (DiskUsage{"Macintosh HD",
                         500'000'000'000,
                         100'000'000'000,
                         20'000'000'000,
                         12'000'000'000,
                         {{apps, 1'200}, {media, 34}, {documents, 65}, {developer, 87}},
                         {},
                         true}));
}

TEST_F(Disk, WithAccessKeepsTheOldFiguresOnViewUntilTheEnd) {
    grantAccess();
    ThreadGate& gate = hold("walk", home("go"));
    start();
    state->disk = DiskUsage{"Old", 1, 2, 3, 4, {{apps, 5}}, {}, true};
    state->refreshDisk();
    runUntilHeld(gate);
    loop.runReady();
    EXPECT_EQ(state->disk->measured, (std::map<DiskCategory, std::int64_t>{{apps, 5}}));
    EXPECT_EQ(state->disk->systemBytes, 4);
    EXPECT_TRUE(state->disk->isComplete);
    gate.open();
    finishWork();
    EXPECT_EQ(state->disk->measured.at(apps), 1'200);
}

TEST_F(Disk, WithoutAccessShowsWhatItHasAndWhatItSkips) {
    ThreadGate& gate = hold("walk", home("go"));
    start();
    state->disk = DiskUsage{"Old", 1, 2, 3, 4, {{apps, 5}, {media, 9}}, {}, true};
    state->refreshDisk();
    EXPECT_THAT(state->disk->measured, IsEmpty());
    EXPECT_EQ(state->disk->systemBytes, std::nullopt);
    EXPECT_FALSE(state->disk->isComplete);
    EXPECT_EQ(state->disk->skipped, (std::set{media, documents}));
    EXPECT_EQ(state->disk->totalBytes, 500'000'000'000);
    runUntil([&] { return !state->disk->measured.empty(); });
    EXPECT_EQ(state->disk->measured, (std::map<DiskCategory, std::int64_t>{{apps, 1'200}}));
    EXPECT_FALSE(state->disk->isComplete);
    EXPECT_THAT(defaults.writes, IsEmpty());
    gate.open();
    finishWork();
    EXPECT_EQ(*state->disk, (DiskUsage{"Macintosh HD",
                                       500'000'000'000,
                                       100'000'000'000,
                                       20'000'000'000,
                                       12'000'000'000,
                                       {{apps, 1'200}, {developer, 87}},
                                       {media, documents},
                                       true}));
    EXPECT_FALSE(files.wasAsked("walk /Users/sam/Pictures"));
    EXPECT_FALSE(files.wasAsked("walk /Users/sam/Documents"));
}

TEST_F(Disk, StoresTheRecordOnceItIsComplete) {
    start();
    refresh();
    ASSERT_THAT(defaults.writes, SizeIs(1));
    EXPECT_EQ(defaults.writes[0].key, "lastDiskUsage");
    EXPECT_EQ(defaults.writes[0].value,
              MemoryDefaults::Value(
                  Data{R"({"volumeName":"Macintosh HD","totalBytes":500000000000,)"
                       R"("freeBytes":100000000000,"purgeableBytes":20000000000,)"
                       R"("systemBytes":12000000000,"measured":["apps",1200,"developer",87],)"
                       R"("skipped":["media","documents"],"isComplete":true})"}));
    const auto next = AppState::create({{loop, pool}, system.platform, remover, defaults});
    EXPECT_EQ(*next->disk, *state->disk);
}

TEST_F(Disk, OfACancelledRunStoresNothingAndStaysAsShown) {
    defaults.stored["lastDiskUsage"] = Data{"former"};
    ThreadGate& gate = hold("walk", home("go"));
    start();
    state->refreshDisk();
    runUntil([&] { return !state->disk->measured.empty(); });
    state->diskTask.cancel();
    gate.open();
    finishWork();
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_EQ(defaults.stored["lastDiskUsage"], MemoryDefaults::Value(Data{"former"}));
    EXPECT_FALSE(state->disk->isComplete);
    EXPECT_EQ(state->disk->measured, (std::map<DiskCategory, std::int64_t>{{apps, 1'200}}));
}

TEST_F(Disk, ANewRunKeepsTheOldOneFromPublishing) {
    ThreadGate& gate = hold("walk", home("go"));
    start();
    state->refreshDisk();
    runUntil([&] { return !state->disk->measured.empty(); });
    runUntilHeld(gate);
    const TaskHandle first = state->diskTask;
    files.addFile(home("go/e"), 100'000);
    state->refreshDisk();
    EXPECT_TRUE(first.isCancelled());
    runUntil([&] { return state->disk->isComplete; });
    EXPECT_EQ(state->disk->measured.at(developer), 100'087);
    files.addFile("/Applications/Editor.app/Contents/MacOS/Editor", 1);
    gate.open();
    finishWork();
    EXPECT_EQ(state->disk->measured.at(apps), 1'200);
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"lastDiskUsage"}));
}

TEST_F(Disk, TakesTheFiguresAgainAtTheEnd) {
    ThreadGate& gate = hold("walk", home("go"));
    start();
    state->refreshDisk();
    runUntilHeld(gate);
    loop.runReady();
    system.volume.setFigures(VolumeFigures{std::nullopt, 600, 200, std::nullopt});
    gate.open();
    finishWork();
    EXPECT_EQ(state->disk->volumeName, "Macintosh HD");
    EXPECT_EQ(state->disk->totalBytes, 600);
    EXPECT_EQ(state->disk->freeBytes, 200);
    EXPECT_EQ(state->disk->purgeableBytes, 0);
}

TEST_F(Disk, DoesWithoutTheSystemsVolumesWhereTheToolFails) {
    system.processes.answer({"/usr/sbin/diskutil", "apfs", "list", "-plist"}, {1, systemVolumes});
    start();
    refresh();
    EXPECT_EQ(state->disk->systemBytes, std::nullopt);
    EXPECT_TRUE(state->disk->isComplete);
    ASSERT_THAT(system.processes.runs(), SizeIs(1));
    EXPECT_EQ(system.processes.runs()[0].limit, std::nullopt);
}

TEST_F(Disk, ReadsAHostileRecordAsNone) {
    for (
        const std::string json :
        {"", "null", "[]", "{}", "{\"volumeName\":5}",
         R"({"volumeName":"x","totalBytes":1e300,"freeBytes":1,"purgeableBytes":1,"measured":[],"skipped":[],"isComplete":true})"}) {
        defaults.stored["lastDiskUsage"] = Data{json};
        const auto one = AppState::create({{loop, pool}, system.platform, remover, defaults});
        EXPECT_EQ(*one->disk, DiskUsage{}) << json;
    }
}

}  // namespace
}  // namespace morvane
