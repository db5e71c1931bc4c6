// How full the disk is, by category, and the map of what lies on it.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class DiskUsage : public SystemTest {
protected:
    void diskutil(const std::string& body) {
        disk.propertyList("/apfs.plist", body);
        disk.tool("/usr/sbin/diskutil",
                  R"([ "$*" = "apfs list -plist" ] && cat "$MORVANE_DISK/root/apfs.plist")");
    }
    static std::string volume(const std::string& role, std::int64_t used) {
        return "<dict><key>Roles</key><array><string>" + role +
               "</string></array><key>CapacityInUse</key><integer>" + std::to_string(used) +
               "</integer></dict>";
    }
    static std::string container(const std::string& reference, const std::string& volumes) {
        return "<dict><key>ContainerReference</key><string>" + reference +
               "</string><key>Volumes</key><array>" + volumes + "</array></dict>";
    }
    static std::string containers(const std::string& list) {
        return "<dict><key>Containers</key><array>" + list + "</array></dict>";
    }
    Json systemBytes() {
        driver().call("refreshDisk");
        return driver().get("disk").at("systemBytes");
    }
};

TEST_F(DiskUsage, IsMeasuredByCategory) {
    disk.file("/Applications/A.app/data", 40960);
    disk.file("/Users/sam/Pictures/a", 8192);
    disk.file("/Users/sam/Music/a", 999'424);
    disk.file("/Users/sam/Desktop/a", 4096);
    disk.file("/Users/sam/Downloads/.a", 4096);
    disk.file("/Users/sam/.npm/a", 12288);
    diskutil(containers(
        container("disk3", volume("System", 1000) + volume("Data", 5000) + volume("Preboot", 24))));
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("disk"),
              Json({{"volumeName", "Macintosh HD"},
                    {"totalBytes", 500'000'000'000},
                    {"freeBytes", 100'000'000'000},
                    {"purgeableBytes", 40'000'000'000},
                    {"systemBytes", 1024},
                    {"measured",
                     {{"apps", 40960}, {"media", 8192}, {"documents", 8192}, {"developer", 12288}}},
                    {"skipped", Json::array()},
                    {"isComplete", true}}));
    EXPECT_EQ(driver().get("slices"),
              Json::parse(R"([{"kind":"apps","bytes":40960},{"kind":"media","bytes":8192},
                  {"kind":"documents","bytes":8192},{"kind":"developer","bytes":12288},
                  {"kind":"system","bytes":1024},{"kind":"other","bytes":359999929344},
                  {"kind":"purgeable","bytes":40000000000}])"));
    // Kept for the next start.
    const Json kept = driver().get("disk");
    driver().call("relaunch");
    EXPECT_EQ(driver().get("disk"), kept);
}

TEST_F(DiskUsage, WithoutAccessSkipsWhatIsPrivate) {
    disk.host["fullDiskAccess"] = "denied";
    disk.file("/Users/sam/Pictures/a", 8192);
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("disk").at("skipped"), Json::array({"documents", "media"}));
    EXPECT_EQ(driver().get("disk").at("measured"), Json({{"apps", 0}, {"developer", 0}}));
}

TEST_F(DiskUsage, ShrinksWhatAddsUpToMoreThanTheDisk) {
    disk.host["volume"] = {{"total", 30000}, {"available", 10000}};
    disk.file("/Applications/A.app/data", 40960);
    disk.file("/Users/sam/Pictures/a", 40960);
    diskutil(containers(container("disk3", volume("System", 1'000'000))));
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("slices"),
              Json::parse(R"([{"kind":"apps","bytes":0},{"kind":"media","bytes":0},
                              {"kind":"system","bytes":20000}])"));
    disk.remove("/apfs.plist");
    driver().call("refreshDisk");
    EXPECT_EQ(driver().get("slices"),
              Json::parse(R"([{"kind":"apps","bytes":10000},{"kind":"media","bytes":10000}])"));
}

TEST_F(DiskUsage, TakesTheContainerOfTheRootDevice) {
    diskutil(containers(container("disk1", volume("System", 1)) +
                        container("disk3", volume("System", 2)) +
                        container("disk33", volume("System", 4))));
    EXPECT_EQ(systemBytes(), 2);
    driver().host({{"mountedFrom", "/dev/disk33s1"}});
    EXPECT_EQ(systemBytes(), 4);
    driver().host({{"mountedFrom", "/dev/disk9s1"}});
    EXPECT_EQ(systemBytes(), 1);
    driver().host({{"mountedFrom", nullptr}});
    EXPECT_EQ(systemBytes(), 1);
}

TEST_F(DiskUsage, ASystemOfAnotherShapeIsUnknown) {
    for (const std::string body :
         {"<array/>", "<dict/>", "<dict><key>Containers</key><dict/></dict>",
          "<dict><key>Containers</key><array><string>x</string></array></dict>", "<dict>"}) {
        diskutil(body);
        EXPECT_EQ(systemBytes(), nullptr) << body;
    }
    EXPECT_EQ(driver().get("disk").at("isComplete"), true);
    diskutil(containers(container("disk3", volume("Data", 5))));
    EXPECT_EQ(systemBytes(), nullptr);
    diskutil(containers(container("disk3", volume("System", 7) +
                                               "<dict><key>CapacityInUse</key><string>9</string>"
                                               "<key>Roles</key><array/></dict>")));
    EXPECT_EQ(systemBytes(), 7);
    disk.tool("/usr/sbin/diskutil", R"(cat "$MORVANE_DISK/root/apfs.plist"; exit 2)");
    EXPECT_EQ(systemBytes(), nullptr);
}

TEST_F(DiskUsage, AnIncompleteRunIsNeverStored) {
    disk.gate("gate");
    disk.file("/Applications/A.app/data", 4096);
    driver().call("refreshDisk");
    const Json complete = driver().get("disk");
    disk.tool("/usr/sbin/diskutil", R"(read line < "$MORVANE_DISK/gate")");
    driver().host({{"fullDiskAccess", "denied"}});
    driver().call("refreshPermissions");
    driver().begin("refreshDisk");
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(driver().get("disk").at("isComplete"), false);
    EXPECT_EQ(driver().get("slices").back().at("kind"), "purgeable");
    EXPECT_EQ(driver().get("slices").at(driver().get("slices").size() - 2).at("kind"), "pending");
    driver().call("relaunch");
    EXPECT_EQ(driver().get("disk"), complete);
    TestDisk::open(gate);
}

class StorageMap : public SystemTest {
protected:
    void scanStorage(bool force = true) { driver().call("scanStorage", {{"force", force}}); }
    static Json child(const Json& node, const std::string& name) {
        return with(node.at("children"), name, "name");
    }
};

TEST_F(StorageMap, HoldsTheRootsAndWhatNoWalkReached) {
    disk.host["volume"] = {{"name", "Disk"}, {"total", 100'000'000}, {"available", 40'000'000}};
    disk.file("/Users/sam/a", 20'000'000);
    disk.file("/Applications/B.app/data", 15'000'000);
    disk.file("/opt/c", 4096);
    disk.file("/private/d", 30'000'000);
    scanStorage();
    const Json root = driver().get("storageRoot");
    EXPECT_EQ(root.at("name"), "Disk");
    EXPECT_EQ(root.at("url"), "/");
    EXPECT_EQ(root.at("bytes"), 60'000'000);
    EXPECT_EQ(all(root.at("children"), "name"),
              Json::array({"Users", "Applications", "opt", "System Data"}));
    EXPECT_EQ(all(root.at("children"), "kind"),
              Json::array({"folder", "folder", "folder", "systemData"}));
    EXPECT_EQ(root.at("children").at(3).at("url"), nullptr);
    EXPECT_EQ(child(root, "opt").at("children"), Json::array());
    const Json app = child(root, "Applications").at("children").at(0);
    EXPECT_EQ(app.at("name"), "B");
    EXPECT_EQ(app.at("kind"), "file");
    EXPECT_EQ(app.at("url"), "/Applications/B.app");
    EXPECT_EQ(driver().get("storageSkippedProtected"), false);
}

TEST_F(StorageMap, FoldsWhatIsSmallIntoOtherItems) {
    for (int number = 0; number < 30; ++number) {
        disk.file("/Users/sam/Many/file" + std::to_string(number), 409'600);
    }
    disk.file("/Users/sam/Few/big", 20'480'000);
    disk.file("/Users/sam/Few/small", 4096);
    disk.file("/Users/sam/Few/none", 0);
    disk.file("/Users/sam/Below/big", 9'998'336);
    disk.file("/Users/sam/Above/big", 10'002'432);
    disk.link("/Users/sam/link", "/Users/sam/Few");
    scanStorage();
    const Json home = child(child(driver().get("storageRoot"), "Users"), "sam");
    const Json many = child(home, "Many");
    ASSERT_EQ(many.at("children").size(), 25U);
    EXPECT_EQ(many.at("children").at(24).at("name"), "Other items");
    EXPECT_EQ(many.at("children").at(24).at("kind"), "rest");
    EXPECT_EQ(many.at("children").at(24).at("bytes"), 6 * 409'600);
    EXPECT_EQ(many.at("children").at(24).at("url"), nullptr);
    EXPECT_EQ(all(child(home, "Few").at("children"), "name"), Json::array({"big", "Other items"}));
    EXPECT_EQ(child(home, "Below").at("children"), Json::array());
    EXPECT_EQ(child(home, "Above").at("children").size(), 1U);
    EXPECT_EQ(child(home, "link"), nullptr);
}

TEST_F(StorageMap, WithoutAccessLeavesOutWhatIsProtected) {
    disk.host["fullDiskAccess"] = "denied";
    disk.file("/Users/sam/Documents/a", 20'000'000);
    disk.file("/Users/sam/Other/Documents/a", 20'000'000);
    scanStorage();
    EXPECT_EQ(driver().get("storageSkippedProtected"), true);
    const Json home = child(child(driver().get("storageRoot"), "Users"), "sam");
    EXPECT_EQ(all(home.at("children"), "name"), Json::array({"Other"}));
}

TEST_F(StorageMap, NeverLeavesTheDiskThroughAMount) {
    disk.file("/Users/sam/Drive/a", 20'000'000);
    disk.file("/Users/sam/b", 20'000'000);
    disk.host["mounts"] = {"/Users/sam/Drive"};
    scanStorage();
    const Json home = child(child(driver().get("storageRoot"), "Users"), "sam");
    EXPECT_EQ(all(home.at("children"), "name"), Json::array({"b"}));
}

TEST_F(StorageMap, AChainEndsWhereThePathDoes) {
    disk.file("/Users/sam/Deep/er/a", 20'000'000);
    scanStorage();
    const auto chain = [&] { return all(driver().get("storageChain"), "name"); };
    driver().set({{"storagePath", {"Users", "sam", "Deep", "er", "a"}}});
    EXPECT_EQ(chain(), Json::array({"Macintosh HD", "Users", "sam", "Deep", "er"}));
    driver().set({{"storagePath", {"Users", "gone", "Deep"}}});
    EXPECT_EQ(chain(), Json::array({"Macintosh HD", "Users"}));
}

TEST_F(StorageMap, IsFreshForFiveMinutes) {
    scanStorage();
    disk.file("/Users/sam/a", 20'000'000);
    driver().host({{"volume", {{"total", 7}, {"available", 3}}}});
    driver().advance(299.9);
    scanStorage(false);
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 500'000'000'000);
    EXPECT_EQ(driver().get("storageScannedAt"), "2026-06-15T12:00:00.000Z");
    driver().advance(0.1);
    scanStorage(false);
    EXPECT_EQ(driver().get("disk").at("totalBytes"), 7);
    // The walked folders hold more than the disk says is used.
    EXPECT_EQ(driver().get("storageRoot").at("bytes"), 20'000'768);
    EXPECT_EQ(all(driver().get("storageRoot").at("children"), "name"), Json::array({"Users"}));
}

TEST_F(StorageMap, ShowsWhatIsStillBeingMeasured) {
    disk.gate("gate");
    disk.tool("/usr/sbin/diskutil", R"(read line < "$MORVANE_DISK/gate")");
    driver().begin("scanStorage", {{"force", true}});
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(driver().get("storageRoot").at("children").back().at("name"), "Measuring…");
    EXPECT_EQ(driver().get("storageRoot").at("children").back().at("kind"), "pending");
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(driver().get("storageRoot").at("children").back().at("kind"), "systemData");
}

}  // namespace
}  // namespace morvane::test
