#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "core/app_state.h"
#include "platform/folder/folder_platform.h"
#include "services/updater.h"
#include "tasks/event_loop.h"
#include "tasks/pool.h"
#include "tasks/scope.h"
#include "ui/screens/screens.h"

namespace morvane::driver {

// Windows that are only asked for: opening one is an effect.
class EffectWindows final : public screens::Windows {
public:
    explicit EffectWindows(folder::EffectLog& effects) : effects_(effects) {}
    void open(std::string_view identifier) override;

private:
    folder::EffectLog& effects_;
};

// The program on a disk in a folder: its loop, its system, and the AppState of the present run.
// Main thread.
class Program {
public:
    // A line that says what is wrong with the disk, with nothing on it touched.
    static std::variant<std::unique_ptr<Program>, std::string> open(
        const std::filesystem::path& disk);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] EventLoop& loop() { return loop_; }
    [[nodiscard]] AppState& state() { return *state_; }
    [[nodiscard]] screens::Screens& screens() { return *screens_; }
    [[nodiscard]] folder::FolderPlatform& system() { return *system_; }
    // For work of the driver's own, off the main thread too.
    [[nodiscard]] Scope& scope() { return *scope_; }

    // A restart: the present run ends, a removal under way being finished and recorded first, and
    // the next one begins with what was stored.
    void relaunch();
    // Waits for everything that was ever started to end, but for the watch for access.
    void waitForAll();
    // Waits until what was stored has reached the disk.
    void flush() { system_->defaults().flush(); }
    // The end: as a restart, without a next run; the tools that still run are ended.
    void finish();

private:
    explicit Program(std::unique_ptr<folder::FolderPlatform> system);
    void begin();
    void endRun();
    [[nodiscard]] bool formerRunsAreIdle() const;

    std::unique_ptr<folder::FolderPlatform> system_;
    EventLoop loop_;
    Pool pool_;
    std::unique_ptr<Scope> scope_;
    std::unique_ptr<Updater> updater_;
    EffectWindows windows_;
    std::shared_ptr<AppState> state_;
    std::unique_ptr<screens::Screens> screens_;
    // Runs that ended while tasks of theirs still waited for something.
    std::vector<std::shared_ptr<AppState>> formerRuns_;
};

}  // namespace morvane::driver
