#pragma once

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/file_system.h"

namespace morvane {

// What a walk told, by whole path, from all its visits together. Any thread.
struct Collected {
    std::mutex mutex;
    std::map<std::string, WalkedEntry> entries;  // `name` of an entry is not kept
    std::map<std::string, int> times;            // how often an entry was reported
    std::map<std::string, FolderIdentity> folders;
    int entered = 0;
    int ended = 0;
    int overlapping = 0;  // calls for one visit that ran at the same time

    // Which folders are entered; all where it is empty.
    std::function<bool(const WalkedEntry&)> goesInto;
    // Runs in each batch, with its folder.
    std::function<void(const WalkedFolder&)> meanwhile;

    [[nodiscard]] bool has(const std::string& path) const { return entries.contains(path); }
    [[nodiscard]] const WalkedEntry& at(const std::string& path) const { return entries.at(path); }
    [[nodiscard]] bool isEachOnce() const {
        return std::all_of(times.begin(), times.end(), [](const auto& t) { return t.second == 1; });
    }
    [[nodiscard]] std::int64_t bytes() const {
        std::int64_t sum = 0;
        for (const auto& [path, entry] : entries) sum += entry.allocatedBytes;
        return sum;
    }
};

class CollectingVisit : public FolderVisit {
public:
    explicit CollectingVisit(Collected& collected) : collected_(collected) {}

    void entries(const WalkedFolder& folder, std::span<const WalkedEntry> batch) override {
        const Turn turn(*this);
        if (collected_.meanwhile) collected_.meanwhile(folder);
        const std::lock_guard lock(collected_.mutex);
        collected_.folders[folder.path()] = folder.identity();
        for (const WalkedEntry& entry : batch) {
            const std::string path = folder.path() / entry.name;
            ++collected_.times[path];
            WalkedEntry& kept = collected_.entries[path];
            kept = entry;
            kept.name = {};
        }
    }

    std::unique_ptr<FolderVisit> enter(const WalkedFolder& folder,
                                       const WalkedEntry& entry) override {
        const Turn turn(*this);
        const std::lock_guard lock(collected_.mutex);
        // Asked of what was reported before, and told the same about it.
        const WalkedEntry& told = collected_.entries.at(folder.path() / entry.name);
        if (entry.kind != EntryKind::folder || told.isPackage != entry.isPackage ||
            told.isHidden != entry.isHidden || told.isVolume != entry.isVolume) {
            return nullptr;
        }
        if (collected_.goesInto && !collected_.goesInto(entry)) return nullptr;
        ++collected_.entered;
        return std::make_unique<CollectingVisit>(collected_);
    }

    void ended(std::unique_ptr<FolderVisit> child) override {
        const Turn turn(*this);
        const std::lock_guard lock(collected_.mutex);
        if (child != nullptr) ++collected_.ended;
    }

private:
    struct Turn {
        explicit Turn(CollectingVisit& visit) : visit_(visit) {
            if (visit.calls_.fetch_add(1) != 0) {
                const std::lock_guard lock(visit.collected_.mutex);
                ++visit.collected_.overlapping;
            }
        }
        ~Turn() { visit_.calls_.fetch_sub(1); }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

        CollectingVisit& visit_;
    };

    Collected& collected_;
    std::atomic<int> calls_{0};
};

// Walks `path` into `collected`; false when it could not be opened.
inline bool collect(const FileSystem& files, const std::filesystem::path& path,
                    const WalkOptions& options, Collected& collected) {
    CollectingVisit visit(collected);
    return files.walk(path, options, visit, StopToken());
}

}  // namespace morvane
