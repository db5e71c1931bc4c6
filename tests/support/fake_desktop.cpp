#include "support/fake_desktop.h"

#include <algorithm>
#include <utility>

namespace morvane::fakes {

namespace {

template <class Map>
std::optional<typename Map::mapped_type> valueAt(const Map& map,
                                                 const typename Map::key_type& key) {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

void FakeWorkspace::registerApplication(const std::string& identifier, std::filesystem::path url) {
    const std::lock_guard lock(mutex_);
    registry_[identifier] = std::move(url);
}

void FakeWorkspace::terminate(const RunningApplication& application) {
    const std::uint64_t process = application.process;
    asked.push_back(process);
    if (refusesToQuit.contains(process)) return;
    std::erase_if(running, [&](const RunningApplication& each) { return each.process == process; });
}

bool FakeWorkspace::isTerminated(const RunningApplication& application) const {
    return std::none_of(running.begin(), running.end(), [&](const RunningApplication& each) {
        return each.process == application.process;
    });
}

std::optional<std::filesystem::path> FakeWorkspace::applicationURL(
    const std::string& bundleIdentifier) const {
    const std::lock_guard lock(mutex_);
    return valueAt(registry_, bundleIdentifier);
}

void FakeWorkspace::chooseFolders(
    const FolderPanel& panel,
    std::function<void(std::optional<std::vector<std::filesystem::path>>)> chosen) {
    panels.push_back(panel);
    if (!later) return chosen(panelAnswer);
    later([chosen = std::move(chosen), answer = panelAnswer] { chosen(answer); });
}

std::optional<MetadataStore::Item> FakeMetadata::item(const std::filesystem::path& path) const {
    return valueAt(items, path);
}

std::optional<Instant> FakeMetadata::addedToFolder(const std::filesystem::path& path) const {
    return valueAt(addedDates, path);
}

std::optional<Instant> FakeMetadata::created(const std::filesystem::path& path) const {
    return valueAt(createdDates, path);
}

void FakeNotifications::ready(std::function<void()> answer) {
    answers_.push_back(std::move(answer));
    if (whenReady) whenReady();
}

void FakeNotifications::deliver() {
    while (!answers_.empty()) {
        const std::function<void()> answer = std::move(answers_.front());
        answers_.pop_front();
        answer();
    }
}

void FakeNotifications::readStatus(std::function<void(PermissionStatus)> answer) {
    ready([this, answer = std::move(answer)] { answer(status); });
}

void FakeNotifications::requestAuthorization(int options, std::function<void()> done) {
    requests.push_back(options);
    ready([this, done = std::move(done)] {
        if (status == PermissionStatus::notDetermined) status = answersWith;
        done();
    });
}

}  // namespace morvane::fakes
