#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/app_state.h"
#include "support/fake_remover.h"
#include "support/fake_system.h"
#include "support/memory_defaults.h"
#include "tasks/event_loop.h"
#include "tasks/gates.h"
#include "tasks/pool.h"

namespace morvane {

using Path = std::filesystem::path;
using Paths = std::vector<Path>;
using Texts = std::vector<std::string>;
using Ids = std::set<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

// A store over a Mac in memory, with a clock that the test moves. `start` makes it; what is to be
// stored or to stand on the disk before that is put there first.
class StoreTest : public testing::Test {
protected:
    fakes::FakeSystem system;
    fakes::FakeFiles& files = system.files;
    MemoryDefaults defaults;
    fakes::FakeRemover remover{files, system.home(".Trash")};
    EventLoop loop{system.now};
    Pool pool{4};
    std::shared_ptr<AppState> state;

    StoreTest() {
        system.notifications.whenReady = [this] {
            loop.post([this] { system.notifications.deliver(); });
        };
        system.workspace.later = [this](std::function<void()> answer) {
            loop.post(std::move(answer));
        };
    }

    void start() { state = AppState::create({{loop, pool}, system.platform, remover, defaults}); }
    void grantAccess() { files.addFile(library("Safari/Bookmarks.plist"), 4096); }

    // Lets the store work until all its tasks have ended, the clock jumping from sleep to sleep.
    void finishWork() {
        ASSERT_TRUE(loop.runUntil([&] { return state->isIdle(); }));
        loop.runReady();
    }
    // The same until `done` says so.
    void runUntil(const std::function<bool()>& done) { ASSERT_TRUE(loop.runUntil(done)); }

    // The first time the disk is asked `question` about `path`, the asking thread waits until the
    // gate is opened; the test's end opens it too.
    ThreadGate& hold(std::string question, Path path) {
        const std::lock_guard lock(holdsMutex_);
        auto& added =
            holds_.emplace_back(std::make_shared<Hold>(std::move(question), std::move(path)));
        files.watch([this](std::string_view asked, const Path& about) {
            const auto held = takeHold(asked, about);
            if (held == nullptr) return;
            loop.post([] {});  // so that the loop looks whether it is held
            held->gate.pass();
        });
        return added->gate;
    }

    // Lets the store work until somebody waits at `gate`.
    void runUntilHeld(const ThreadGate& gate) {
        runUntil([&] {
            const std::lock_guard lock(holdsMutex_);
            return std::any_of(holds_.begin(), holds_.end(), [&](const auto& held) {
                return &held->gate == &gate && held->isTaken;
            });
        });
    }

    void TearDown() override {
        for (const auto& held : holds_) held->gate.open();
        if (state == nullptr) return;
        state->drop();
        EXPECT_TRUE(loop.runUntil([&] { return state->isIdle(); }));
        loop.runReady();
    }

    [[nodiscard]] Path home(std::string_view below) const { return system.home(below); }
    [[nodiscard]] Path library(std::string_view below) const { return system.library(below); }
    [[nodiscard]] Path trash(std::string_view below) const { return home(".Trash") / below; }
    [[nodiscard]] bool stands(const Path& path) const {
        return files.presence(path) == Presence::there;
    }

    [[nodiscard]] std::ptrdiff_t timesAsked(std::string_view question) const {
        const auto history = files.history();
        return std::count(history.begin(), history.end(), question);
    }

    // Puts every part of `item` on the disk.
    CleanupItem placed(CleanupItem item) {
        for (const CleanupPart& part : *trashParts(item)) files.addFile(part.url, part.bytes);
        return item;
    }
    InstalledApp placed(InstalledApp app) {
        for (const AppPart& part : app.parts) files.addFile(part.url, part.bytes);
        return app;
    }
    LargeFile placed(LargeFile file) {
        files.addFile(file.url, file.bytes);
        return file;
    }

private:
    struct Hold {
        Hold(std::string asked, Path about) : question(std::move(asked)), path(std::move(about)) {}
        std::string question;
        Path path;
        bool isTaken = false;
        ThreadGate gate;
    };
    std::shared_ptr<Hold> takeHold(std::string_view question, const Path& path) {
        const std::lock_guard lock(holdsMutex_);
        for (const auto& held : holds_) {
            if (held->isTaken || held->question != question || held->path != path) continue;
            held->isTaken = true;
            return held;
        }
        return nullptr;
    }
    std::mutex holdsMutex_;
    std::vector<std::shared_ptr<Hold>> holds_;
};

// A disk on which each of the five categories finds something.
class ScanTest : public StoreTest {
protected:
    void fillDisk() {
        files.addFile(library("Caches/Acme/data"), 3'000'000);
        files.addFile(home("Downloads/Setup.dmg"), 5'000'000);
        files.addFile(home(".npm/_cacache/index"), 11'000'000);
        files.addFile(library("Application Support/com.gone.App/data"), 2'000'000);
        files.addFile(home("Movies/film.mp4"), 200'000'000, system.now - 24h * 400);
        files.addFile(backupFolder() / "ABC/Manifest.db", 7'000'000);
    }
    [[nodiscard]] Path backupFolder() const {
        return library("Application Support/MobileSync/Backup");
    }
    void scan() {
        state->startScan(true);
        finishWork();
    }
    [[nodiscard]] bool hasFinished(ScanCategory category) const {
        return state->finishedCategories->contains(category);
    }
};

using Parts = std::vector<std::pair<Path, std::int64_t>>;

[[nodiscard]] inline CleanupItem trashItem(std::string id, Safety safety, const Parts& sizes) {
    std::vector<CleanupPart> parts;
    for (const auto& [path, bytes] : sizes) parts.push_back({path, bytes, {}});
    CleanupItem item{.id = id, .name = id, .safety = safety};
    return withParts(std::move(item), std::move(parts));
}

// An item of one part, "/x/{id}".
[[nodiscard]] inline CleanupItem trashItem(const std::string& id, Safety safety,
                                           std::int64_t bytes) {
    return trashItem(id, safety, Parts{{Path("/x") / id, bytes}});
}

[[nodiscard]] inline CleanupItem commandItem(std::string id, std::int64_t bytes,
                                             std::vector<std::string> arguments) {
    return {.id = id,
            .name = id,
            .bytes = bytes,
            .safety = Safety::safe,
            .action = CommandAction{"/usr/bin/tool", std::move(arguments)}};
}

[[nodiscard]] inline DevSection devSection(std::string id, std::vector<CleanupItem> items) {
    return {.id = id, .name = id, .icon = "hammer", .subtitle = "", .items = std::move(items)};
}

[[nodiscard]] inline Texts idsOf(const std::vector<CleanupItem>& items) {
    Texts ids;
    for (const CleanupItem& item : items) ids.push_back(item.id);
    return ids;
}

[[nodiscard]] inline Paths pathsOf(const CleanupItem& item) {
    Paths paths;
    for (const CleanupPart& part : *trashParts(item)) paths.push_back(part.url);
    return paths;
}

}  // namespace morvane
