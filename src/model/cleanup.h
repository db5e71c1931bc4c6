#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace morvane {

// How much care an item asks for. An item marked `review` is never pre-selected and never counts
// towards what is offered for an immediate sweep.
enum class Safety : std::uint8_t { safe, regenerates, review };

// The folder an item was seen in, by what the file system calls it. Removal opens the folder again
// and refuses the item where it has become another one. Both zero: not known.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    [[nodiscard]] bool isKnown() const { return device != 0 || inode != 0; }
    bool operator==(const FolderIdentity&) const = default;
};

// One path that an item will remove. `bytes` is its allocated size.
struct CleanupPart {
    std::filesystem::path url;
    std::int64_t bytes = 0;
    FolderIdentity folder = {};

    bool operator==(const CleanupPart&) const = default;
};

// How an item goes: its paths to the Trash (or deleted outright), or by running a program.
struct TrashAction {
    std::vector<CleanupPart> parts;
    bool operator==(const TrashAction&) const = default;
};
struct CommandAction {
    std::filesystem::path executable;
    std::vector<std::string> arguments;
    bool operator==(const CommandAction&) const = default;
};
using CleanupAction = std::variant<TrashAction, CommandAction>;

// One reviewable row of a scan; `id` is stable within one scan and is what selections hold.
struct CleanupItem {
    std::string id;
    std::string name;
    std::int64_t bytes = 0;
    Safety safety = Safety::review;
    std::string location;
    std::string explanation;
    std::string lastUsed;
    std::optional<std::filesystem::path> revealURL;
    CleanupAction action;

    bool operator==(const CleanupItem&) const = default;
};

// Whether the item is left for the user to look at, and never chosen by itself.
[[nodiscard]] inline bool needsReview(const CleanupItem& item) {
    return item.safety == Safety::review;
}

// The parts of a `trash` item; null for a `command` item.
[[nodiscard]] inline const std::vector<CleanupPart>* trashParts(const CleanupItem& item) {
    const auto* action = std::get_if<TrashAction>(&item.action);
    return action == nullptr ? nullptr : &action->parts;
}

[[nodiscard]] std::int64_t totalBytes(const std::vector<CleanupPart>& parts);

// `item` with only `parts` left to go; its bytes are theirs, every other field stays.
[[nodiscard]] CleanupItem withParts(CleanupItem item, std::vector<CleanupPart> parts);

struct DevSection {
    std::string id;
    std::string name;
    std::string icon;
    std::string subtitle;
    std::vector<CleanupItem> items;

    bool operator==(const DevSection&) const = default;
};

// A titled group of the review screen; `name` is its identity. `items` is the store's own list, as
// it stands whenever it is looked at, and lives as long as the store.
struct SweepGroup {
    std::string name;
    std::string icon;
    std::reference_wrapper<const std::vector<CleanupItem>> items;

    bool operator==(const SweepGroup& other) const {
        return name == other.name && icon == other.icon && items.get() == other.items.get();
    }
};

enum class SweepPreset : std::uint8_t { safe, all, nothing };
enum class CheckState : std::uint8_t { on, off, mixed };

// How a group stands of whose `all` items so many are chosen.
[[nodiscard]] inline CheckState checkState(std::ptrdiff_t chosen, std::ptrdiff_t all) {
    if (chosen == 0) return CheckState::off;
    return chosen == all ? CheckState::on : CheckState::mixed;
}

}  // namespace morvane
