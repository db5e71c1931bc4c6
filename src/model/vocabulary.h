#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace morvane {

// The five things a scan reports on, in the order in which they are started and added up.
enum class ScanCategory : std::uint8_t { crumbs, developer, leftovers, largeFiles, backups };

enum class ScanPhase : std::uint8_t { idle, scanning, done, success, empty };
enum class ScanSchedule : std::uint8_t { off, weekly, monthly };
enum class SidebarItem : std::uint8_t {
    overview,
    sweep,
    developer,
    uninstaller,
    storage,
    large,
    settings
};
enum class OnboardingStep : std::uint8_t { welcome, access, notifications };
enum class MenuBarPhase : std::uint8_t { idle, sweeping, done };
// Used for Full Disk Access and for notifications alike.
enum class PermissionStatus : std::uint8_t { notDetermined, granted, denied };
enum class AppSort : std::uint8_t { size, name, leastUsed };
enum class FileKind : std::uint8_t { video, diskImage, archive, audio, document, other };
enum class DiskCategory : std::uint8_t { apps, media, documents, developer, system, other };

inline constexpr std::array allScanCategories{ScanCategory::crumbs, ScanCategory::developer,
                                              ScanCategory::leftovers, ScanCategory::largeFiles,
                                              ScanCategory::backups};
inline constexpr std::array allFileKinds{FileKind::video, FileKind::diskImage, FileKind::archive,
                                         FileKind::audio, FileKind::document,  FileKind::other};
inline constexpr std::array allDiskCategories{DiskCategory::apps,      DiskCategory::media,
                                              DiskCategory::documents, DiskCategory::developer,
                                              DiskCategory::system,    DiskCategory::other};
inline constexpr std::array allSchedules{ScanSchedule::off, ScanSchedule::weekly,
                                         ScanSchedule::monthly};

struct ScanCategoryWords {
    ScanCategory value;
    std::string_view raw;
    std::string_view title;
    std::string_view scanningTitle;
    std::string_view symbol;
};
inline constexpr std::array scanCategoryWords{
    ScanCategoryWords{ScanCategory::crumbs, "crumbs", "System Crumbs", "System crumbs", "sparkles"},
    ScanCategoryWords{ScanCategory::developer, "developer", "Developer Junk", "Developer files",
                      "chevron.left.forwardslash.chevron.right"},
    ScanCategoryWords{ScanCategory::leftovers, "leftovers", "App Leftovers", "App leftovers",
                      "shippingbox"},
    ScanCategoryWords{ScanCategory::largeFiles, "largeFiles", "Large & Old Files",
                      "Large & old files", "doc.text"},
    ScanCategoryWords{ScanCategory::backups, "backups", "iPhone Backups", "iPhone backups",
                      "iphone"},
};

struct SidebarWords {
    SidebarItem value;
    std::string_view raw;
    std::string_view title;
    std::string_view symbol;
};
inline constexpr std::array sidebarWords{
    SidebarWords{SidebarItem::overview, "overview", "Overview", "gauge.with.dots.needle.67percent"},
    SidebarWords{SidebarItem::sweep, "sweep", "Sweep", "morvane"},
    SidebarWords{SidebarItem::developer, "developer", "Developer",
                 "chevron.left.forwardslash.chevron.right"},
    SidebarWords{SidebarItem::uninstaller, "uninstaller", "Uninstaller", "minus.square"},
    SidebarWords{SidebarItem::storage, "storage", "Storage Map", "chart.pie"},
    SidebarWords{SidebarItem::large, "large", "Large Files", "doc.text"},
    SidebarWords{SidebarItem::settings, "settings", "Settings", "slider.horizontal.3"},
};

// The raw value of a case: what is stored, what a control shows, or the identity of a row.
[[nodiscard]] std::string_view rawValue(ScanCategory value);
[[nodiscard]] std::string_view rawValue(ScanSchedule value);
[[nodiscard]] std::string_view rawValue(SidebarItem value);
[[nodiscard]] std::string_view rawValue(OnboardingStep value);
[[nodiscard]] std::string_view rawValue(FileKind value);
[[nodiscard]] std::string_view rawValue(DiskCategory value);

[[nodiscard]] const ScanCategoryWords& wordsOf(ScanCategory value);
[[nodiscard]] const SidebarWords& wordsOf(SidebarItem value);

// The case whose raw value is exactly `raw`.
[[nodiscard]] std::optional<ScanSchedule> scanScheduleFrom(std::string_view raw);
[[nodiscard]] std::optional<OnboardingStep> onboardingStepFrom(std::string_view raw);
[[nodiscard]] std::optional<DiskCategory> diskCategoryFrom(std::string_view raw);

}  // namespace morvane
