#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "collecting_visit.h"
#include "folder_disk.h"

namespace morvane::folder {

namespace {

// Does one thing over and over on a thread of its own while this object lives; the thread has begun
// when the constructor returns.
class Meanwhile {
public:
    explicit Meanwhile(std::function<void()> act)
        : thread_([this, act = std::move(act)] {
              do {
                  act();
                  begun_ = true;
                  begun_.notify_all();
              } while (!over_);
          }) {
        begun_.wait(false);
    }
    ~Meanwhile() {
        over_ = true;
        thread_.join();
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    std::atomic<bool> begun_{false};
    std::atomic<bool> over_{false};
    std::thread thread_;
};

TEST(Changing, AFolderThatBecomesALinkIsNotFollowed) {
    const FolderDisk disk;
    disk.addFile("/outside/big", 4'096'000);
    disk.addFile("/top/stays", 4'096);
    disk.addFile("/top/swapped/inside", 8'192);
    disk.addLink("/link", "../outside");  // it leads there from inside "/top"
    const Meanwhile swapping([&] {
        std::filesystem::rename(disk.place("/top/swapped"), disk.place("/aside"));
        std::filesystem::rename(disk.place("/link"), disk.place("/top/swapped"));
        std::filesystem::rename(disk.place("/top/swapped"), disk.place("/link"));
        std::filesystem::rename(disk.place("/aside"), disk.place("/top/swapped"));
    });
    for (int round = 0; round < 2'000; ++round) {
        const std::int64_t bytes = disk.size("/top");
        ASSERT_TRUE(bytes == 4'096 || bytes == 12'288) << bytes;
    }
    for (int round = 0; round < 500; ++round) {
        Collected collected;
        ASSERT_TRUE(collect(disk.files(), "/top", {}, collected));
        ASSERT_FALSE(collected.has("/top/swapped/big"));
        ASSERT_TRUE(collected.has("/top/stays"));
        ASSERT_EQ(collected.entered, collected.ended);
    }
}

TEST(Changing, AFolderThatBecameALinkSinceItWasListedIsNotFollowed) {
    const FolderDisk disk(FolderDisk::Where::memory, 0);
    disk.addFile("/outside/big", 4'096'000);
    disk.addFile("/top/swapped/inside", 8'192);
    disk.addLink("/link", "../outside");
    Collected collected;
    collected.meanwhile = [&](const WalkedFolder&) {
        if (std::filesystem::exists(disk.place("/aside"))) return;
        std::filesystem::rename(disk.place("/top/swapped"), disk.place("/aside"));
        std::filesystem::rename(disk.place("/link"), disk.place("/top/swapped"));
    };
    ASSERT_TRUE(collect(disk.files(), "/top", {}, collected));
    EXPECT_EQ(collected.entries.size(), 1U);
    EXPECT_EQ(collected.entered, 1);
    EXPECT_EQ(collected.ended, 1);
}

TEST(Changing, EntriesThatComeAndGoDoNoHarm) {
    const FolderDisk disk;
    for (int number = 0; number < 50; ++number) {
        disk.addFile("/top/" + std::to_string(number) + "/kept", 4'096);
    }
    int turn = 0;
    const Meanwhile coming([&] {
        const std::filesystem::path folder = "/top/" + std::to_string(turn++ % 50);
        std::filesystem::create_directories(disk.place(folder / "new/below"));
        std::filesystem::create_symlink("/", disk.place(folder / "new/link"));
        std::filesystem::remove_all(disk.place(folder / "new"));
    });
    for (int round = 0; round < 200; ++round) {
        ASSERT_EQ(disk.size("/top"), 50 * 4'096);
        Collected collected;
        ASSERT_TRUE(collect(disk.files(), "/top", {}, collected));
        ASSERT_EQ(collected.bytes(), 50 * 4'096);
        ASSERT_EQ(collected.entered, collected.ended);
        ASSERT_TRUE(disk.files().list("/top", Hidden::included).ok());
    }
}

TEST(Changing, AFileThatVanishesIsToldWithoutAttributes) {
    const FolderDisk disk(FolderDisk::Where::memory, 0);
    disk.addFile("/top/folder/file", 4'096);
    Collected collected;
    collected.meanwhile = [&](const WalkedFolder&) {
        std::filesystem::remove_all(disk.place("/top/folder"));
    };
    ASSERT_TRUE(collect(disk.files(), "/top", {}, collected));
    EXPECT_EQ(collected.entries.size(), 1U);
    EXPECT_EQ(collected.entered, 1);
    EXPECT_EQ(collected.ended, 1);
}

}  // namespace

}  // namespace morvane::folder
