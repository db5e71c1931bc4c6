#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "model/cleanup.h"
#include "model/disk.h"
#include "model/history.h"
#include "model/vocabulary.h"

namespace morvane {

// The names of the cases of an enumeration, in its order: how scripts and screens speak of a case
// that has no text of its own.
template <class Case>
inline constexpr std::array<std::string_view, 0> caseNames{};

template <>
inline constexpr std::array caseNames<Safety> =
    std::to_array<std::string_view>({"safe", "regenerates", "review"});
template <>
inline constexpr std::array caseNames<SweepPreset> =
    std::to_array<std::string_view>({"safe", "all", "nothing"});
template <>
inline constexpr std::array caseNames<CheckState> =
    std::to_array<std::string_view>({"on", "off", "mixed"});
template <>
inline constexpr std::array caseNames<ScanCategory> =
    std::to_array<std::string_view>({"crumbs", "developer", "leftovers", "largeFiles", "backups"});
template <>
inline constexpr std::array caseNames<ScanPhase> =
    std::to_array<std::string_view>({"idle", "scanning", "done", "success", "empty"});
template <>
inline constexpr std::array caseNames<ScanSchedule> =
    std::to_array<std::string_view>({"off", "weekly", "monthly"});
template <>
inline constexpr std::array caseNames<SidebarItem> = std::to_array<std::string_view>(
    {"overview", "sweep", "developer", "uninstaller", "storage", "large", "settings"});
template <>
inline constexpr std::array caseNames<OnboardingStep> =
    std::to_array<std::string_view>({"welcome", "access", "notifications"});
template <>
inline constexpr std::array caseNames<MenuBarPhase> =
    std::to_array<std::string_view>({"idle", "sweeping", "done"});
template <>
inline constexpr std::array caseNames<PermissionStatus> =
    std::to_array<std::string_view>({"notDetermined", "granted", "denied"});
template <>
inline constexpr std::array caseNames<AppSort> =
    std::to_array<std::string_view>({"size", "name", "leastUsed"});
template <>
inline constexpr std::array caseNames<FileKind> = std::to_array<std::string_view>(
    {"video", "diskImage", "archive", "audio", "document", "other"});
template <>
inline constexpr std::array caseNames<DiskCategory> =
    std::to_array<std::string_view>({"apps", "media", "documents", "developer", "system", "other"});
template <>
inline constexpr std::array caseNames<StorageNode::Kind> =
    std::to_array<std::string_view>({"folder", "file", "rest", "system", "systemData", "pending"});
template <>
inline constexpr std::array caseNames<HistoryState> =
    std::to_array<std::string_view>({"putBack", "deleted", "restorable", "emptied"});

template <class Case>
[[nodiscard]] constexpr std::string_view caseName(Case value) {
    return caseNames<Case>[static_cast<std::size_t>(value)];
}

// The case of exactly that name.
template <class Case>
[[nodiscard]] constexpr std::optional<Case> caseFrom(std::string_view name) {
    for (std::size_t index = 0; index < caseNames<Case>.size(); ++index) {
        if (caseNames<Case>[index] == name) return static_cast<Case>(index);
    }
    return std::nullopt;
}

}  // namespace morvane
