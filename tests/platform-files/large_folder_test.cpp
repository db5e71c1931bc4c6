#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "folder_disk.h"

namespace morvane::folder {

namespace {

constexpr int entryCount = 200'000;

// Half of the entries are folders, which is what has to be kept apart.
void addEntries(const FolderDisk& disk) {
    const Descriptor top(::open(disk.place("/").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int number = 0; number < entryCount; ++number) {
        const std::string name = std::to_string(number);
        if (number % 2 == 0) {
            ASSERT_EQ(::mkdirat(top.get(), name.c_str(), 0755), 0);
        } else {
            ASSERT_EQ(::mknodat(top.get(), name.c_str(), S_IFREG | 0644, 0), 0);
        }
    }
}

// Counts the entries, and asks for a stop once it has seen `stopAfter`. Any thread.
class Counter : public FolderVisit {
public:
    Counter(std::atomic<int>& seen, int stopAfter, const StopSource& stop)
        : seen_(seen), stopAfter_(stopAfter), stop_(stop) {}

    void entries(const WalkedFolder& /*folder*/, std::span<const WalkedEntry> batch) override {
        const int seen = seen_ += static_cast<int>(batch.size());
        if (seen >= stopAfter_) stop_.request_stop();
    }
    std::unique_ptr<FolderVisit> enter(const WalkedFolder& /*folder*/,
                                       const WalkedEntry& /*entry*/) override {
        return std::make_unique<Counter>(seen_, stopAfter_, stop_);
    }
    void ended(std::unique_ptr<FolderVisit> /*child*/) override {}

private:
    std::atomic<int>& seen_;
    int stopAfter_;
    const StopSource& stop_;
};

TEST(LargeFolder, IsWalkedWholeAndStopsSoon) {
    const FolderDisk disk;
    addEntries(disk);

    std::atomic<int> all = 0;
    const StopSource never;
    Counter whole(all, entryCount * 2, never);
    ASSERT_TRUE(disk.files().walk("/", {}, whole, never.get_token()));
    EXPECT_EQ(all.load(), entryCount);
    EXPECT_EQ(disk.files().list("/", Hidden::included)->size(), std::size_t{entryCount});

    for (const int stopAfter : {1, 50'000}) {
        std::atomic<int> some = 0;
        const StopSource soon;
        Counter part(some, stopAfter, soon);
        ASSERT_TRUE(disk.files().walk("/", {}, part, soon.get_token()));
        EXPECT_GE(some.load(), stopAfter);
        EXPECT_LT(some.load(), stopAfter + 2'000 + 4'096);  // one batch, and what may follow
    }
}

TEST(Stopping, BeforeTheWalkBeginsLooksAtNothing) {
    const FolderDisk disk;
    disk.addFile("/a/b", 4'096);
    const StopSource source;
    source.request_stop();
    std::atomic<int> seen = 0;
    Counter visit(seen, 1, source);
    EXPECT_TRUE(disk.files().walk("/", {}, visit, source.get_token()));
    EXPECT_EQ(seen.load(), 0);
    EXPECT_EQ(disk.files().treeSize("/", true, source.get_token()).bytes, 0);
}

}  // namespace

}  // namespace morvane::folder
