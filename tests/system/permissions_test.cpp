// Full Disk Access: the probe, the watch, and what a grant refreshes.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Permissions : public SystemTest {
protected:
    Permissions() {
        disk.host["fullDiskAccess"] = "probe";
        disk.host["metadata"] = Json::object();
    }
    Json access() {
        driver().call("refreshPermissions");
        return driver().get("fullDiskAccess");
    }
    static inline const std::string system = "/Library/Application Support/com.apple.TCC/TCC.db";
    static inline const std::string own = "/Users/sam" + system;
};

TEST_F(Permissions, ADiskWithNoneOfThePathsDenies) {
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
}

TEST_F(Permissions, OneReadablePathIsEnough) {
    disk.text("/Users/sam/Library/Safari/Bookmarks.plist", "x");
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    disk.remove("/Users/sam/Library/Safari/Bookmarks.plist");
    EXPECT_EQ(access(), "denied");
    disk.makeFolder("/Users/sam/Library/Mail");
    EXPECT_EQ(access(), "granted");
}

TEST_F(Permissions, TheFirstRefusalDecides) {
    disk.text(system, "x");
    disk.text(own, "x");
    disk.host["unreadable"] = {system};
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
    driver().host({{"unreadable", {own}}});
    EXPECT_EQ(access(), "granted");
}

TEST_F(Permissions, APipeInThePlaceOfAFileHoldsNobodyUp) {
    disk.pipe("/Users/sam/Library/Safari/Bookmarks.plist");
    const Json answer = access();
    EXPECT_TRUE(answer == "granted" || answer == "denied");
}

TEST_F(Permissions, AccessInTheLastTurnsIsCaughtAndLaterIsNot) {
    driver().begin("watchForAccess");
    driver().advance(299.5);
    disk.makeFolder("/Users/sam/Library/Mail");
    driver().advance(0.5);
    EXPECT_EQ(driver().get("fullDiskAccess"), "granted");
    disk.remove("/Users/sam/Library/Mail");
    EXPECT_EQ(access(), "denied");
    driver().begin("watchForAccess");
    driver().advance(300);
    EXPECT_EQ(driver().get("tasks"), Json::array());
    disk.makeFolder("/Users/sam/Library/Mail");
    driver().advance(10);
    EXPECT_EQ(driver().get("fullDiskAccess"), "denied");
}

TEST_F(Permissions, ASecondWatchStartsTheCountAgain) {
    driver().begin("watchForAccess");
    driver().advance(200);
    driver().begin("watchForAccess");
    driver().advance(250);
    EXPECT_EQ(driver().get("tasks"), Json::array({"accessWatchTask"}));
    driver().call("finishOnboarding");
    EXPECT_EQ(driver().get("tasks"), Json::array());
}

TEST_F(Permissions, AGrantRefreshesWhatTheLackShaped) {
    disk.host["fullDiskAccess"] = "denied";
    driver().call("scanApps", {{"force", true}});
    driver().call("scanFiles", {{"force", true}});
    driver().call("scanStorage", {{"force", true}});
    driver().host({{"fullDiskAccess", "granted"}});
    driver().set({{"selection", "storage"}});
    driver().advance(1);
    EXPECT_EQ(access(), "granted");
    EXPECT_EQ(driver().get("appsScannedAt"), nullptr);
    EXPECT_EQ(driver().get("filesScannedAt"), nullptr);
    EXPECT_EQ(driver().get("storageScannedAt"), "2026-06-15T12:00:01.000Z");
    EXPECT_EQ(driver().get("disk").at("isComplete"), true);
    driver().host({{"fullDiskAccess", "denied"}});
    EXPECT_EQ(access(), "denied");
    EXPECT_EQ(driver().get("storageScannedAt"), "2026-06-15T12:00:01.000Z");
}

}  // namespace
}  // namespace morvane::test
