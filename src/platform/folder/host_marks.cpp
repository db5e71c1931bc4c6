#include "platform/folder/host_marks.h"

namespace morvane::folder {

namespace {

// Takes the first component off a path; false when there is none.
bool takeComponent(std::string_view& path, std::string_view& component) {
    const std::size_t start = path.find_first_not_of('/');
    if (start == std::string_view::npos) return false;
    path.remove_prefix(start);
    component = path.substr(0, path.find('/'));
    path.remove_prefix(component.size());
    return true;
}

}  // namespace

void HostMarks::addLists(const DiskRoot& disk, const Host& host) {
    const auto addAll = [&](const std::vector<std::filesystem::path>& paths, Mark mark) {
        for (const std::filesystem::path& path : paths) {
            const Result<Place> place = disk.locate(path);
            if (place.ok()) add(place->canonicalPath(), mark);
        }
    };
    addAll(host.hidden, Mark::hidden);
    addAll(host.packages, Mark::package);
    addAll(host.aliases, Mark::alias);
    addAll(host.mounts, Mark::mount);
    addAll(host.unreadable, Mark::unreadable);
}

void HostMarks::add(std::string_view canonicalPath, Mark mark) {
    if (items_.empty()) items_.emplace_back();
    MarkedItem* item = &items_.front();
    std::string_view component;
    while (takeComponent(canonicalPath, component)) {
        MarkedItem*& next = item->below[std::string(component)];
        if (next == nullptr) next = &items_.emplace_back();
        item = next;
    }
    item->marks = static_cast<std::uint8_t>(item->marks | static_cast<std::uint8_t>(mark));
}

const MarkedItem* HostMarks::find(std::string_view canonicalPath) const {
    if (items_.empty()) return nullptr;
    const MarkedItem* item = &items_.front();
    std::string_view component;
    while (item != nullptr && takeComponent(canonicalPath, component)) {
        item = item->find(component);
    }
    return item;
}

bool HostMarks::has(std::string_view canonicalPath, Mark mark) const {
    const MarkedItem* item = find(canonicalPath);
    return item != nullptr && item->has(mark);
}

bool HostMarks::isUnreadable(std::string_view canonicalPath) const {
    if (items_.empty()) return false;
    const MarkedItem* item = &items_.front();
    std::string_view component;
    while (item != nullptr && !item->has(Mark::unreadable)) {
        if (!takeComponent(canonicalPath, component)) return false;
        item = item->find(component);
    }
    return item != nullptr;
}

}  // namespace morvane::folder
