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
        return true;
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
        NewestWriter writer([&](const std::string& bytes) {
            stored.push_back(bytes);
            return true;
        });
        writer.write("1");
        writer.waitUntilIdle();
        writer.write("2");
    }
    EXPECT_EQ(stored, (std::vector<std::string>{"1", "2"}));
}

TEST(NewestWriter, IsIdleFromTheStart) {
    NewestWriter writer([](const std::string&) { return true; });
    writer.waitUntilIdle();
    writer.retryIfFailed();
}

// A writer that fails `failures` times, and what it was asked to store.
struct Failing {
    explicit Failing(int count) : failures(count) {}
    int failures;
    std::vector<std::string> asked;
    NewestWriter writer{[this](const std::string& bytes) {
        asked.push_back(bytes);
        return --failures < 0;
    }};
    void store(const std::string& bytes) {
        writer.write(bytes);
        writer.waitUntilIdle();
    }
};

TEST(NewestWriter, StoresTheLastOnceMoreWhereItFailed) {
    Failing failing(1);
    failing.store("1");
    failing.writer.retryIfFailed();
    failing.writer.waitUntilIdle();
    EXPECT_EQ(failing.asked, (std::vector<std::string>{"1", "1"}));
    failing.writer.retryIfFailed();
    failing.writer.waitUntilIdle();
    EXPECT_EQ(failing.asked, (std::vector<std::string>{"1", "1"}));
}

TEST(NewestWriter, StoresNothingOldAgainOnceSomethingNewerIsStored) {
    Failing failing(1);
    failing.store("1");
    failing.store("2");
    failing.writer.retryIfFailed();
    failing.writer.waitUntilIdle();
    EXPECT_EQ(failing.asked, (std::vector<std::string>{"1", "2"}));
}

}  // namespace
}  // namespace morvane::folder
