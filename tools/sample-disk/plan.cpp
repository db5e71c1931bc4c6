#include "plan.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "file_heads.h"

namespace morvane::sample {
namespace {

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::int64_t wholeBytes(double megabytes) {
    return std::llround(megabytes * 1e6);
}

}  // namespace

Plan::Plan(std::uint64_t seed, Moment now) : seed_(seed), now_(now) {}

Entry* Plan::add(const std::string& path, EntryKind kind) {
    if (known_.contains(path)) {
        return nullptr;
    }
    if (const std::string parent = parentOf(path); !parent.empty()) {
        folder(parent);
    }
    known_.insert(path);
    Entry& entry = entries_.emplace_back();
    entry.path = path;
    entry.kind = kind;
    return &entry;
}

void Plan::folder(const std::string& path, mode_t mode) {
    if (Entry* const entry = add(path, EntryKind::folder)) {
        entry->mode = mode;
    }
}

void Plan::folderOfAge(const std::string& path, double days) {
    if (Entry* const entry = add(path, EntryKind::folder)) {
        entry->mode = 0755;
        entry->modified = ago(path, days);
        entry->hasOwnTime = true;
    }
}

void Plan::file(const std::string& path, Megabytes size, double days) {
    if (Entry* const entry = add(path, EntryKind::file)) {
        const std::int64_t percent = random("size of " + path).between(85, 115);
        entry->content = headOf(path);
        entry->nominal = wholeBytes(size.amount) / 100 * percent;
        entry->floor = wholeBytes(size.atLeast);
        entry->staysLarge = size.staysLarge;
        entry->keepsSize = size.keepsSize;
        entry->modified = ago(path, days);
        entry->mode = 0644;
    }
}

void Plan::text(const std::string& path, std::string content, double days, mode_t mode) {
    if (Entry* const entry = add(path, EntryKind::file)) {
        entry->content = std::move(content);
        entry->modified = ago(path, days);
        entry->mode = mode;
    }
}

void Plan::list(const std::string& path, const PropertyList& value, ListForm form, double days) {
    text(path, form == ListForm::xml ? value.xml() : value.binary(), days);
}

void Plan::link(const std::string& path, std::string target, double days) {
    if (Entry* const entry = add(path, EntryKind::link)) {
        entry->content = std::move(target);
        entry->modified = ago(path, days);
    }
}

void Plan::hardLink(const std::string& path, std::string existing) {
    const auto other = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.path == existing; });
    if (other == entries_.end()) {
        return;
    }
    const Moment modified = other->modified;
    if (Entry* const entry = add(path, EntryKind::hardLink)) {
        entry->content = std::move(existing);
        entry->modified = modified;
    }
}

Moment Plan::ago(std::string_view path, double days) const {
    const auto seconds = static_cast<Moment>(std::llround(days * static_cast<double>(secondsADay)));
    const std::int64_t permille = random("age of " + std::string(path)).between(0, 100);
    return now_ - seconds - seconds / 1'000 * permille;
}

void Plan::settleFolderTimes() {
    std::unordered_map<std::string, Moment> newest;
    // A folder stands before what lies in it, so going backwards meets the inner ones first.
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
        if (entry->kind == EntryKind::folder && !entry->hasOwnTime) {
            const auto child = newest.find(entry->path);
            entry->modified = child == newest.end() ? ago(entry->path, 400) : child->second;
        }
        const auto [place, isNew] = newest.try_emplace(parentOf(entry->path), entry->modified);
        if (!isNew) {
            place->second = std::max(place->second, entry->modified);
        }
    }
}

}  // namespace morvane::sample
