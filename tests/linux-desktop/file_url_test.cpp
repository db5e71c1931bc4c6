#include "platform/linux/file_url.h"

#include <gtest/gtest.h>

namespace morvane::linuxdesktop {
namespace {

TEST(FileURL, LeavesWhatIsPlainAsItIs) {
    EXPECT_EQ(fileURL("/Users/sam/a-b_c.~1/X"), "file:///Users/sam/a-b_c.~1/X");
    EXPECT_EQ(fileURL("/"), "file:///");
}

TEST(FileURL, SpellsOutWhateverMeansSomethingInAURL) {
    EXPECT_EQ(fileURL("/a b?c#d%41&e;f:g"), "file:///a%20b%3Fc%23d%2541%26e%3Bf%3Ag");
    EXPECT_EQ(fileURL("/line\nbreak\x7f"), "file:///line%0Abreak%7F");
}

TEST(FileURL, KeepsBytesThatAreNoText) {
    EXPECT_EQ(fileURL("/\xc3\xa4\xff"), "file:///%C3%A4%FF");
}

}  // namespace
}  // namespace morvane::linuxdesktop
