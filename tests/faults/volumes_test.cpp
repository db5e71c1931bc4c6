// Real volumes at and inside what is to go, and disks that are full.

#include <fstream>
#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include "faults/new_start.h"
#include "mounted_elsewhere.h"

namespace morvane::test {
namespace {

using folder::mountFolder;
using folder::mountMemory;
using folder::whereMountingIsAllowed;

const std::string caches = "/Users/sam/Library/Caches/";
using Names = std::vector<std::string>;

// A disk on which a volume in memory is mounted at one item, another inside the next, and a folder
// of the disk is bound into the third; the fourth is free to go.
class Volumes : public testing::Test {
protected:
    Volumes() {
        for (const std::string name : {"com.a.At", "com.a.Inside", "com.a.Bound", "com.a.Free"}) {
            disk.text(caches + name + "/data", name);
            disk.makeFolder(caches + name + "/deep/point");
        }
        disk.text("/Users/sam/Documents/precious", "precious");
        disk.writeHost();
    }
    void mountAll() {
        mountMemory(disk.real(caches + "com.a.At"));
        disk.text(caches + "com.a.At/volume", "on a volume");
        mountMemory(disk.real(caches + "com.a.Inside/deep/point"));
        disk.text(caches + "com.a.Inside/deep/point/volume", "on a volume");
        mountFolder(disk.real("/Users/sam/Documents"),
                    disk.real(caches + "com.a.Bound/deep/point"));
    }
    TestDisk disk;
};

// To the Trash, or outright.
class EitherVolumes : public Volumes, public testing::WithParamInterface<bool> {};

TEST_P(EitherVolumes, AtOrInsideAnItemStayWithAllTheyHold) {
    const bool usesTrash = GetParam();
    whereMountingIsAllowed([&] {
        mountAll();
        const std::vector<std::string> held{"com.a.At", "com.a.Bound", "com.a.Inside"};
        std::vector<TreeSnapshot> before;
        for (const std::string& name : held)
            before.push_back(takeSnapshot(disk.real(caches + name)));
        const TreeSnapshot documents = takeSnapshot(disk.real("/Users/sam/Documents"));
        {
            DriverClient driver(disk.folder());
            driver.set({{"alwaysUseTrash", usesTrash}});
            scanFor(driver);
            sweepFound(driver);
        }
        EXPECT_EQ(disk.names(caches), held);
        for (std::size_t i = 0; i < held.size(); ++i) {
            EXPECT_EQ(differences(before[i], takeSnapshot(disk.real(caches + held[i]))), "");
        }
        EXPECT_EQ(differences(documents, takeSnapshot(disk.real("/Users/sam/Documents"))), "");
        EXPECT_EQ(disk.names("/Users/sam/.Trash"), usesTrash ? Names{"com.a.Free"} : Names());
    });
}

TEST_F(Volumes, OfWhichTheTrashIsOneTakeNothing) {
    whereMountingIsAllowed([&] {
        disk.makeFolder("/Users/sam/.Trash");
        mountMemory(disk.real("/Users/sam/.Trash"));
        DriverClient driver(disk.folder());
        scanFor(driver);
        sweepFound(driver);
        EXPECT_EQ(disk.names(caches),
                  (Names{"com.a.At", "com.a.Bound", "com.a.Free", "com.a.Inside"}));
        EXPECT_EQ(disk.names("/Users/sam/.Trash"), Names());
        EXPECT_EQ(driver.get("history"), Json::array());
        EXPECT_NE(driver.get("sweepProblem"), nullptr);
    });
}

INSTANTIATE_TEST_SUITE_P(Disposals, EitherVolumes, testing::Bool(), [](const auto& info) {
    return std::string(info.param ? "ToTheTrash" : "Outright");
});

// Writes until the file system at `folder` has no room for one more byte.
void fillUp(const std::filesystem::path& folder) {
    std::ofstream file(folder / "filling", std::ios::binary);
    while (file << std::string(1024, 'x') && file.flush()) {
    }
    struct statvfs room{};
    EXPECT_EQ(::statvfs(folder.c_str(), &room), 0);
    EXPECT_EQ(room.f_bavail, 0U);
}

TEST(FullDisk, LosesNothingAndAllGoesOnOnceThereIsRoom) {
    TestDisk disk;
    whereMountingIsAllowed([&] {
        // The home is a small volume, mounted before anything is put on it.
        mountMemory(disk.real("/Users/sam"), "256k");
        const std::set<std::string> paths{caches + "com.a.One", caches + "com.a.Two"};
        for (const std::string& path : paths) disk.text(path + "/data", path);
        disk.makeFolder("/Users/sam/Library/Preferences");
        disk.writeHost();
        {
            DriverClient driver(disk.folder());
            driver.set({{"schedule", "weekly"}});
        }
        fillUp(disk.real("/Users/sam"));
        {
            DriverClient driver(disk.folder());
            EXPECT_EQ(scanFor(driver), paths);
            driver.set({{"showInMenuBar", false}});
            sweepFound(driver);
        }
        for (const std::string& path : paths) {
            const std::string name = std::filesystem::path(path).filename();
            const bool stays = disk.has(path + "/data");
            EXPECT_NE(stays, disk.has("/Users/sam/.Trash/" + name + "/data")) << path;
            EXPECT_EQ(disk.content(stays ? path + "/data" : "/Users/sam/.Trash/" + name + "/data"),
                      path);
        }
        disk.remove("/Users/sam/filling");
        DriverClient driver(disk.folder());
        EXPECT_EQ(driver.get("schedule"), "weekly");
        restoreAll(driver);
        scanFor(driver);
        sweepFound(driver);
        for (const std::string& path : paths) EXPECT_FALSE(disk.has(path)) << path;
        EXPECT_EQ(disk.names("/Users/sam/.Trash"), (Names{"com.a.One", "com.a.Two"}));
    });
}

}  // namespace
}  // namespace morvane::test
