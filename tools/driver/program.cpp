#include "driver/program.h"

#include <algorithm>
#include <utility>

#include "platform/remover.h"

namespace morvane::driver {

void EffectWindows::open(std::string_view identifier) {
    effects_.add({"openWindow", std::string(identifier)});
}

std::variant<std::unique_ptr<Program>, std::string> Program::open(
    const std::filesystem::path& disk) {
    auto opened = folder::FolderPlatform::open(disk);
    if (auto* error = std::get_if<std::string>(&opened)) return std::move(*error);
    auto& system = std::get<std::unique_ptr<folder::FolderPlatform>>(opened);
    return std::unique_ptr<Program>(new Program(std::move(system)));
}

Program::Program(std::unique_ptr<folder::FolderPlatform> system)
    : system_(std::move(system)), loop_(system_->host()->now), windows_(system_->effects()) {
    system_->start(loop_);
    scope_ = std::make_unique<Scope>(Runtime{loop_, pool_});
    updater_ = std::make_unique<Updater>(system_->updates());
    begin();
}

Program::~Program() = default;

void Program::begin() {
    state_ = AppState::create(
        {Runtime{loop_, pool_}, system_->platform(), system_->remover(), system_->defaults()});
    screens_ =
        std::make_unique<screens::Screens>(screens::ScreenNeeds{*state_, *updater_, windows_});
}

void Program::endRun() {
    loop_.runUntil([&] { return !state_->isRemoving(); });
    screens_.reset();
    state_->drop();
    system_->defaults().flush();
    formerRuns_.push_back(std::move(state_));
    loop_.runReady();
    std::erase_if(formerRuns_, [](const auto& run) { return run->isIdle(); });
}

void Program::relaunch() {
    endRun();
    system_->reopenDefaults();
    begin();
}

bool Program::formerRunsAreIdle() const {
    return std::all_of(formerRuns_.begin(), formerRuns_.end(),
                       [](const auto& run) { return run->isIdle(); });
}

void Program::waitForAll() {
    loop_.runUntil([&] {
        return state_->tasksAtWork() == (state_->accessWatchTask.isAtWork() ? 1U : 0U) &&
               scope_->isEmpty() && formerRunsAreIdle();
    });
}

void Program::finish() {
    endRun();
    system_->processes().endAll();
    scope_->cancel();
    loop_.runUntil([&] { return scope_->isEmpty() && formerRunsAreIdle(); });
    formerRuns_.clear();
}

}  // namespace morvane::driver
