#include "platform/formats/uuid.h"

#include <gtest/gtest.h>
#include <set>

namespace morvane {
namespace {

TEST(IsUUID, TakesTheHyphenatedFormInEitherCase) {
    EXPECT_TRUE(isUUID("0F8FAD5B-D9CB-469F-A165-70867728950E"));
    EXPECT_TRUE(isUUID("0f8fad5b-d9cb-469f-a165-70867728950e"));
    EXPECT_FALSE(isUUID(""));
    EXPECT_FALSE(isUUID("0F8FAD5B-D9CB-469F-A165-70867728950"));
    EXPECT_FALSE(isUUID("0F8FAD5B-D9CB-469F-A165-70867728950EE"));
    EXPECT_FALSE(isUUID("0F8FAD5BD9CB469FA16570867728950E"));
    EXPECT_FALSE(isUUID("0F8FAD5B-D9CB-469F-A165-70867728950G"));
    EXPECT_FALSE(isUUID("0F8FAD5B-D9CB-469FA-165-70867728950E"));
    EXPECT_FALSE(isUUID("{0F8FAD5B-D9CB-469F-A165-7086772895}"));
}

TEST(MakeUUID, GivesAnotherOneEachTime) {
    std::set<std::string> seen;
    for (int round = 0; round < 1000; ++round) {
        const std::string uuid = makeUUID();
        EXPECT_TRUE(isUUID(uuid)) << uuid;
        EXPECT_EQ(uuid.find_first_of("abcdef"), std::string::npos) << uuid;
        EXPECT_EQ(uuid[14], '4');
        EXPECT_NE(std::string("89AB").find(uuid[19]), std::string::npos);
        seen.insert(uuid);
    }
    EXPECT_EQ(seen.size(), 1000U);
}

}  // namespace
}  // namespace morvane
