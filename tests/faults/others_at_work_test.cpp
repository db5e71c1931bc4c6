// Others change the disk while the program works on it.

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

#include "faults/new_start.h"

namespace morvane::test {
namespace {

const std::string caches = "/Users/sam/Library/Caches";
constexpr int rounds = 8;

TEST(OthersAtWork, TwoProgramsThatSweepTheSameDiskMoveEachItemOnce) {
    for (int round = 0; round < rounds; ++round) {
        PlannedDisk planned;
        DriverClient one(planned.disk.folder());
        DriverClient other(planned.disk.folder());
        scanFor(one);
        scanFor(other);
        const auto sweep = [](DriverClient& driver) {
            Json ids = Json::array();
            for (const Json& item : driver.get("sweepItems")) ids.push_back(item.at("id"));
            driver.send({{"call", "sweep"}, {"args", {{"items", ids}}}});
        };
        sweep(one);
        sweep(other);
        EXPECT_EQ(one.answer(), Json({{"result", nullptr}}));
        EXPECT_EQ(other.answer(), Json({{"result", nullptr}}));
        EXPECT_EQ(planned.itemsAt(Whereabouts::trash).size(), planned.items().size());
        // Each knows of what it moved itself, and between them they put everything back.
        restoreAll(one);
        restoreAll(other);
        EXPECT_EQ(planned.itemsAt(Whereabouts::oldPlace).size(), planned.items().size());
        planned.expectRestUntouched();
        if (testing::Test::HasFailure()) return;
    }
}

TEST(OthersAtWork, TwoProgramsThatDeleteTheSameItemsDeleteNothingElse) {
    for (int round = 0; round < rounds; ++round) {
        PlannedDisk planned;
        DriverClient one(planned.disk.folder());
        DriverClient other(planned.disk.folder());
        for (DriverClient* driver : {&one, &other}) {
            driver->set({{"alwaysUseTrash", false}});
            scanFor(*driver);
        }
        const Json request{{"call", "sweep"},
                           {"args", {{"items", {"caches", "logs", "otherInstallers"}}}}};
        one.send(request);
        other.send(request);
        EXPECT_EQ(one.answer(), Json({{"result", nullptr}}));
        EXPECT_EQ(other.answer(), Json({{"result", nullptr}}));
        EXPECT_EQ(planned.filesLeft(), std::set<std::string>());
        planned.expectRestUntouched();
        if (testing::Test::HasFailure()) return;
    }
}

// Puts a file of its own into the Trash under every other name that the program is about to take
// for a "same.log", until it is dropped.
class NameTaker {
public:
    explicit NameTaker(const TestDisk& disk)
        : trash_(disk.real("/Users/sam/.Trash")), thread_([this] { run(); }) {}
    ~NameTaker() { end(); }
    NameTaker(const NameTaker&) = delete;
    NameTaker& operator=(const NameTaker&) = delete;

    // How many files it has put there.
    int end() {
        isEnding_ = true;
        if (thread_.joinable()) thread_.join();
        return taken_;
    }

private:
    [[nodiscard]] std::string name(int number) const {
        return trash_.native() + "/same " + std::to_string(number) + ".log";
    }
    void run() {
        for (int number = 3; !isEnding_;) {
            // Once the program has come this far it goes for the next name.
            if (::access(name(number - 1).c_str(), F_OK) != 0) continue;
            const int file = ::open(name(number).c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
            if (file >= 0) ++taken_;
            if (file >= 0) ::close(file);
            number += file >= 0 ? 2 : 1;
        }
    }

    std::filesystem::path trash_;
    std::atomic<bool> isEnding_ = false;
    int taken_ = 0;
    std::thread thread_;
};

TEST(OthersAtWork, ATrashThatFillsMeanwhileLosesNothing) {
    constexpr std::size_t logs = 1000;
    TestDisk disk;
    for (std::size_t i = 0; i < logs; ++i) {
        disk.text("/Users/sam/Library/Logs/" + std::to_string(i) + "/same.log", "log");
    }
    disk.makeFolder("/Users/sam/.Trash");
    disk.writeHost();
    DriverClient driver(disk.folder());
    scanFor(driver);
    NameTaker taker(disk);
    sweepFound(driver);
    const int taken = taker.end();
    const std::vector<std::string> names = disk.names("/Users/sam/.Trash");
    EXPECT_EQ(names.size(), logs + static_cast<std::size_t>(taken));
    EXPECT_EQ(std::ranges::count_if(names,
                                    [&](const std::string& name) {
                                        return disk.content("/Users/sam/.Trash/" + name) == "log";
                                    }),
              logs);
    EXPECT_EQ(restoreAll(driver).size(), logs);
    EXPECT_EQ(disk.names("/Users/sam/.Trash").size(), static_cast<std::size_t>(taken));
}

// Swaps two paths of the disk for each other, in one step and over and over, until it is dropped.
class Swapping {
public:
    Swapping(const TestDisk& disk, const std::string& left, const std::string& right)
        : left_(disk.real(left)), right_(disk.real(right)), thread_([this] { run(); }) {}
    ~Swapping() {
        isEnding_ = true;
        thread_.join();
        if (times_ % 2 != 0) swap();
    }
    Swapping(const Swapping&) = delete;
    Swapping& operator=(const Swapping&) = delete;

private:
    void swap() {
        if (::renameat2(AT_FDCWD, left_.c_str(), AT_FDCWD, right_.c_str(), RENAME_EXCHANGE) == 0) {
            ++times_;
        }
    }
    void run() {
        while (!isEnding_) swap();
    }

    std::filesystem::path left_;
    std::filesystem::path right_;
    std::atomic<bool> isEnding_ = false;
    int times_ = 0;
    std::thread thread_;
};

class Swapped : public testing::TestWithParam<bool> {
protected:
    void sweepWhileSwapping(PlannedDisk& planned, const std::string& left,
                            const std::string& right) {
        DriverClient driver(planned.disk.folder());
        driver.set({{"alwaysUseTrash", GetParam()}});
        scanFor(driver);
        const Swapping swapping(planned.disk, left, right);
        sweepFound(driver);
    }
    void expectNothingLost(const PlannedDisk& planned) {
        if (GetParam()) {
            planned.expectOldPlaceOrTrash();
        } else {
            planned.expectOldPlaceOrGone();
        }
    }
};

TEST_P(Swapped, AMiddleFolderForALinkLeadsToNothingElse) {
    for (int round = 0; round < rounds; ++round) {
        PlannedDisk planned;
        // Behind the link lies something under each name that is to go.
        for (const std::string name : {"/com.a.One/data", "/com.a.Two/data"}) {
            planned.disk.text("/Users/sam/Documents/Caches" + name, "precious too");
        }
        planned.disk.link("/Users/sam/Library/Other", "/Users/sam/Documents/Caches");
        const TreeSnapshot before = takeSnapshot(planned.disk.real("/Users/sam/Documents"));
        sweepWhileSwapping(planned, caches, "/Users/sam/Library/Other");
        expectNothingLost(planned);
        EXPECT_EQ(differences(before, takeSnapshot(planned.disk.real("/Users/sam/Documents"))), "");
        EXPECT_TRUE(planned.disk.has(caches + "/com.apple.keep/data"));
        if (testing::Test::HasFailure()) return;
    }
}

TEST_P(Swapped, AnItemForALinkIsNotFollowed) {
    for (int round = 0; round < rounds; ++round) {
        PlannedDisk planned;
        planned.disk.link("/Users/sam/aside", "/Users/sam/Documents");
        const TreeSnapshot before = takeSnapshot(planned.disk.real("/Users/sam/Documents"));
        sweepWhileSwapping(planned, caches + "/com.a.One", "/Users/sam/aside");
        EXPECT_EQ(differences(before, takeSnapshot(planned.disk.real("/Users/sam/Documents"))), "");
        if (GetParam()) {
            // One of the two went, whichever stood there, and the other is where it was put.
            const TestDisk& disk = planned.disk;
            int copies = 0;
            for (const std::string at : {"/Users/sam/aside", "/Users/sam/Library/Caches/com.a.One",
                                         "/Users/sam/.Trash/com.a.One"}) {
                if (!disk.has(at + "/sub/deep/data")) continue;
                EXPECT_TRUE(disk.has(at + "/data"));
                ++copies;
            }
            EXPECT_EQ(copies, 1);
        }
        if (testing::Test::HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Disposals, Swapped, testing::Bool(), [](const auto& info) {
    return std::string(info.param ? "ToTheTrash" : "Outright");
});

}  // namespace
}  // namespace morvane::test
