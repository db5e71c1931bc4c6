#include "services/feed/version.h"

#include <gtest/gtest.h>
#include <string>

namespace morvane {
namespace {

TEST(Version, IsNumbersPartedBySingleDots) {
    for (const char* version : {"0", "1", "1.0", "10.20.30", "0001.2"}) {
        EXPECT_TRUE(isVersion(version)) << version;
    }
    for (const char* text : {"", ".", "1.", ".1", "1..2", "1.2b3", "v1", "1 ", "-1", "1,2", "١"}) {
        EXPECT_FALSE(isVersion(text)) << text;
    }
    EXPECT_TRUE(isVersion(std::string(64, '1')));
    EXPECT_FALSE(isVersion(std::string(65, '1')));
}

TEST(Version, IsComparedNumberByNumber) {
    EXPECT_TRUE(compareVersions("1.9", "1.10") < 0);
    EXPECT_TRUE(compareVersions("2", "1.99.99") > 0);
    EXPECT_TRUE(compareVersions("1.2", "1.2.1") < 0);
    EXPECT_TRUE(compareVersions("100", "99") > 0);
    EXPECT_TRUE(compareVersions("0.9", "1") < 0);
}

TEST(Version, IsTheSameWithoutZerosThatSayNothing) {
    EXPECT_TRUE(compareVersions("1", "1.0.0") == 0);
    EXPECT_TRUE(compareVersions("1.02", "1.2") == 0);
    EXPECT_TRUE(compareVersions("0", "0.0") == 0);
}

TEST(Version, MayBeLargerThanAnyInteger) {
    EXPECT_TRUE(compareVersions("99999999999999999999", "100000000000000000000") < 0);
    EXPECT_TRUE(compareVersions("18446744073709551616", "18446744073709551616.0") == 0);
    EXPECT_TRUE(compareVersions("18446744073709551616", "0") > 0);
}

}  // namespace
}  // namespace morvane
