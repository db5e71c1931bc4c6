#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "measure/disk_usage.h"

namespace morvane {
namespace {

using enum DiskCategory;

const DiskUsage full{"Größe \"1\"", 500, 100, 40, 12, {{apps, 1200}, {developer, 34}},
                     {media},       true};

TEST(StoredDiskUsage, IsWrittenInItsOrder) {
    EXPECT_EQ(encodeDiskUsage(full),
              R"({"volumeName":"Größe \"1\"","totalBytes":500,"freeBytes":100,)"
              R"("purgeableBytes":40,"systemBytes":12,"measured":["apps",1200,"developer",34],)"
              R"("skipped":["media"],"isComplete":true})");
}

TEST(StoredDiskUsage, LeavesTheSystemsKeyOutWhereItIsNotKnown) {
    DiskUsage disk = full;
    disk.systemBytes.reset();
    const std::string json = encodeDiskUsage(disk);
    EXPECT_EQ(json.find("systemBytes"), std::string::npos);
    EXPECT_EQ(decodeDiskUsage(json)->systemBytes, std::nullopt);
    disk.systemBytes = 0;
    EXPECT_EQ(decodeDiskUsage(encodeDiskUsage(disk))->systemBytes, 0);
}

TEST(StoredDiskUsage, ComesBackAsItWas) {
    EXPECT_EQ(decodeDiskUsage(encodeDiskUsage(full)), full);
    EXPECT_EQ(decodeDiskUsage(encodeDiskUsage(DiskUsage{})), DiskUsage{});
}

TEST(StoredDiskUsage, IsReadInAnyOrderOfItsKeysAndPairs) {
    EXPECT_EQ(decodeDiskUsage(
                  R"({"isComplete":true,"skipped":["media"],"measured":["developer",34,"apps",)"
                  R"(1200],"systemBytes":12,"new":[],"purgeableBytes":40,"freeBytes":100,)"
                  R"("totalBytes":500,"volumeName":"Größe \"1\""})"),
              full);
}

TEST(StoredDiskUsage, IsNothingWhereAnythingIsAmiss) {
    const auto with = [](const std::string& key, const std::string& value) {
        std::string json = "{";
        for (const auto& [name, good] : {std::pair<std::string, std::string>{"volumeName", "\"x\""},
                                         {"totalBytes", "1"},
                                         {"freeBytes", "1"},
                                         {"purgeableBytes", "1"},
                                         {"systemBytes", "1"},
                                         {"measured", "[\"apps\",1]"},
                                         {"skipped", "[\"media\"]"},
                                         {"isComplete", "true"}}) {
            if (name == key && value.empty()) continue;
            if (json.size() > 1) json += ",";
            json += "\"" + name + "\":" + (name == key ? value : good);
        }
        return json + "}";
    };
    EXPECT_TRUE(decodeDiskUsage(with("", "")));
    EXPECT_TRUE(decodeDiskUsage(with("systemBytes", "")));
    EXPECT_TRUE(decodeDiskUsage(with("systemBytes", "null")));
    const std::pair<std::string, std::string> bad[] = {
        {"volumeName", ""},
        {"volumeName", "null"},
        {"volumeName", "5"},
        {"totalBytes", ""},
        {"totalBytes", "\"1\""},
        {"totalBytes", "1.5"},
        {"totalBytes", "1e300"},
        {"totalBytes", "9223372036854775807"},
        {"freeBytes", "-9223372036854775808"},
        {"purgeableBytes", "true"},
        {"systemBytes", "\"1\""},
        {"systemBytes", "9223372036854775807"},
        {"measured", ""},
        {"measured", "{\"apps\":1}"},
        {"measured", "[\"apps\"]"},
        {"measured", "[\"apps\",1,\"media\"]"},
        {"measured", "[1,\"apps\"]"},
        {"measured", "[\"games\",1]"},
        {"measured", "[\"apps\",null]"},
        {"measured", "[\"apps\",9223372036854775807]"},
        {"skipped", ""},
        {"skipped", "\"media\""},
        {"skipped", "[\"games\"]"},
        {"skipped", "[1]"},
        {"isComplete", ""},
        {"isComplete", "1"},
    };
    for (const auto& [key, value] : bad) {
        EXPECT_EQ(decodeDiskUsage(with(key, value)), std::nullopt) << key << " " << value;
    }
    for (const std::string text : {"", "null", "[]", "{", "{}", "\xff"}) {
        EXPECT_EQ(decodeDiskUsage(text), std::nullopt) << text;
    }
}

TEST(StoredDiskUsage, ReplacesWhatIsNoText) {
    DiskUsage disk = full;
    disk.volumeName = "bad\xff";
    EXPECT_EQ(decodeDiskUsage(encodeDiskUsage(disk))->volumeName, "bad\xEF\xBF\xBD");
}

}  // namespace
}  // namespace morvane
