#include "platform/folder/newest_writer.h"

#include <future>
#include <gtest/gtest.h>
#include <vector>

namespace morvane::folder {
namespace {

TEST(NewestWriter, StoresTheFirstAndTheNewestOfThoseThatHadToWait) {
    std::promise<void> began;
    std::promise<void> mayEnd;
    std::vector<std::string> stored;
    NewestWriter writer([&](const std::string& bytes) {
        stored.push_back(bytes);
        if (bytes == "1") {
            began.set_value();
            mayEnd.get_future().wait();
        }
    });
    writer.write("1");
    began.get_future().wait();
    writer.write("2");
    writer.write("3");
    mayEnd.set_value();
    writer.waitUntilIdle();
    EXPECT_EQ(stored, (std::vector<std::string>{"1", "3"}));
}

TEST(NewestWriter, StoresWhatWaitsBeforeItEnds) {
    std::vector<std::string> stored;
    {
        NewestWriter writer([&](const std::string& bytes) { stored.push_back(bytes); });
        writer.write("1");
        writer.waitUntilIdle();
        writer.write("2");
    }
    EXPECT_EQ(stored, (std::vector<std::string>{"1", "2"}));
}

TEST(NewestWriter, IsIdleFromTheStart) {
    NewestWriter writer([](const std::string&) {});
    writer.waitUntilIdle();
}

}  // namespace
}  // namespace morvane::folder
