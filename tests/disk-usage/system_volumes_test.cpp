#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "measure/disk_usage.h"
#include "support/fake_system.h"

namespace morvane {
namespace {

std::string plist(const std::string& body) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + body + "</plist>";
}

std::string volume(const std::string& role, const std::string& used) {
    return "<dict><key>Roles</key><array>" + (role.empty() ? "" : "<string>" + role + "</string>") +
           "</array>" + (used.empty() ? "" : "<key>CapacityInUse</key>" + used) + "</dict>";
}

std::string bytes(const std::string& number) {
    return "<integer>" + number + "</integer>";
}

std::string container(const std::string& reference, const std::string& volumes) {
    return "<dict>" +
           (reference.empty() ? ""
                              : "<key>ContainerReference</key><string>" + reference + "</string>") +
           "<key>Volumes</key><array>" + volumes + "</array></dict>";
}

std::string list(const std::string& containers) {
    return plist("<dict><key>Containers</key><array>" + containers + "</array></dict>");
}

TEST(SystemVolumes, AreAllOfTheContainerButTheDataVolume) {
    const std::string text =
        list(container("disk3", volume("System", bytes("10")) + volume("Data", bytes("500")) +
                                    volume("Preboot", bytes("3")) + volume("", bytes("1"))));
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk3s1s1"), 14);
}

TEST(SystemVolumes, AreThoseOfTheContainerThatHoldsTheRoot) {
    const std::string text = list(container("disk1", volume("System", bytes("1"))) +
                                  container("disk3", volume("System", bytes("2"))) +
                                  container("disk33", volume("System", bytes("3"))));
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk3s1s1"), 2);
    EXPECT_EQ(systemBytesFrom(text, "disk33s2"), 3);
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk1s5"), 1);
}

TEST(SystemVolumes, AreThoseOfTheFirstSystemWhereTheRootIsNotFound) {
    const std::string text = list(container("disk1", volume("Data", bytes("1"))) +
                                  container("", volume("System", bytes("2"))) +
                                  container("disk3", volume("System", bytes("3"))));
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk9s1"), 2);
    EXPECT_EQ(systemBytesFrom(text, std::nullopt), 2);
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk3"), 2);
}

TEST(SystemVolumes, PassOverAContainerOfTheRootWithoutASystem) {
    const std::string text = list(container("disk3", volume("Data", bytes("1"))) +
                                  container("disk5", volume("System", bytes("2"))));
    EXPECT_EQ(systemBytesFrom(text, "/dev/disk3s1"), 2);
}

TEST(SystemVolumes, CountNothingForAVolumeWithoutANumber) {
    const std::string text = list(container(
        "disk3", volume("System", "") + volume("VM", "<string>900</string>") +
                     volume("Preboot", bytes("3")) + "<dict></dict>" + "<string>odd</string>"));
    EXPECT_EQ(systemBytesFrom(text, std::nullopt), 3);
}

TEST(SystemVolumes, OfNothingInUseAreAKnownNothing) {
    EXPECT_EQ(systemBytesFrom(list(container("disk3", volume("System", bytes("0")))), {}), 0);
}

TEST(SystemVolumes, AreNotKnownWhereNoContainerHoldsASystem) {
    EXPECT_EQ(systemBytesFrom(list(""), {}), std::nullopt);
    EXPECT_EQ(systemBytesFrom(list(container("disk3", volume("Data", bytes("1")))), {}),
              std::nullopt);
}

TEST(SystemVolumes, AreNotKnownFromAnythingElse) {
    for (const std::string& text :
         {std::string(), std::string("not a list"), plist("<array/>"), plist("<dict/>"),
          plist("<dict><key>Containers</key><string>x</string></dict>"),
          plist("<dict><key>Containers</key><dict/></dict>"),
          list(container("disk3", volume("System", bytes("1"))) + "<string>x</string>")}) {
        EXPECT_EQ(systemBytesFrom(text, "/dev/disk3s1"), std::nullopt) << text;
    }
}

TEST(SystemVolumes, AreNotKnownFromFiguresThatNoDiskHas) {
    const auto sum = [](const std::string& first, const std::string& second) {
        return systemBytesFrom(
            list(container("disk3", volume("System", bytes(first)) + volume("VM", bytes(second)))),
            std::nullopt);
    };
    EXPECT_EQ(sum("9223372036854775807", "1"), std::nullopt);
    EXPECT_EQ(sum("9223372036854775807", "0"), std::nullopt);
    EXPECT_EQ(sum("-5", "1"), std::nullopt);
    EXPECT_EQ(sum("8000000000000", "1"), 8'000'000'000'001);
}

class SystemBytes : public testing::Test {
protected:
    fakes::FakeSystem system;
    StopSource stop;
    const std::vector<std::string> tool{"/usr/sbin/diskutil", "apfs", "list", "-plist"};
    const std::string output = list(container("disk1", volume("System", bytes("1"))) +
                                    container("disk3", volume("System", bytes("2"))));

    [[nodiscard]] std::optional<std::int64_t> measured() const {
        return measureSystemBytes(system.platform, stop.get_token());
    }
};

TEST_F(SystemBytes, AreAskedOfTheToolWithoutALimit) {
    system.processes.answer(tool, {0, output});
    EXPECT_EQ(measured(), 2);
    ASSERT_EQ(system.processes.runs().size(), 1U);
    EXPECT_EQ(system.processes.runs()[0].limit, std::nullopt);
}

TEST_F(SystemBytes, AreNotKnownWhereTheToolFailsOrCannotStart) {
    EXPECT_EQ(measured(), std::nullopt);
    system.processes.answer(tool, {1, output});
    EXPECT_EQ(measured(), std::nullopt);
}

TEST_F(SystemBytes, AreThoseOfTheFirstSystemWhereTheDeviceIsNotKnown) {
    system.processes.answer(tool, {0, output});
    system.volume.setMountedFrom(std::nullopt);
    EXPECT_EQ(measured(), 1);
}

}  // namespace
}  // namespace morvane
