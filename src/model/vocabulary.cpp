#include "model/vocabulary.h"

#include <cstddef>
#include <utility>

namespace morvane {

namespace {

template <class Case>
struct Raw {
    Case value;
    std::string_view raw;
};

constexpr std::array schedules{Raw{ScanSchedule::off, "Off"}, Raw{ScanSchedule::weekly, "Weekly"},
                               Raw{ScanSchedule::monthly, "Monthly"}};
constexpr std::array steps{Raw{OnboardingStep::welcome, "welcome"},
                           Raw{OnboardingStep::access, "access"},
                           Raw{OnboardingStep::notifications, "notifications"}};
constexpr std::array fileKinds{
    Raw{FileKind::video, "Video"},        Raw{FileKind::diskImage, "Disk Images"},
    Raw{FileKind::archive, "Archives"},   Raw{FileKind::audio, "Audio"},
    Raw{FileKind::document, "Documents"}, Raw{FileKind::other, "Other"}};
constexpr std::array diskCategories{
    Raw{DiskCategory::apps, "apps"},           Raw{DiskCategory::media, "media"},
    Raw{DiskCategory::documents, "documents"}, Raw{DiskCategory::developer, "developer"},
    Raw{DiskCategory::system, "system"},       Raw{DiskCategory::other, "other"}};

// Every table above and in the header holds its cases in the order of the enumeration.
template <class Table, class Case>
const auto& row(const Table& table, Case value) {
    return table[static_cast<std::size_t>(value)];
}

template <class Table>
auto find(const Table& table, std::string_view raw)
    -> std::optional<decltype(table.front().value)> {
    for (const auto& entry : table) {
        if (entry.raw == raw) return entry.value;
    }
    return std::nullopt;
}

template <class Table>
constexpr bool inOrder(const Table& table) {
    for (std::size_t index = 0; index < table.size(); ++index) {
        if (static_cast<std::size_t>(table[index].value) != index) return false;
    }
    return true;
}
static_assert(inOrder(schedules) && inOrder(steps) && inOrder(fileKinds) &&
              inOrder(diskCategories) && inOrder(scanCategoryWords) && inOrder(sidebarWords));

}  // namespace

std::string_view rawValue(ScanCategory value) {
    return row(scanCategoryWords, value).raw;
}
std::string_view rawValue(ScanSchedule value) {
    return row(schedules, value).raw;
}
std::string_view rawValue(SidebarItem value) {
    return row(sidebarWords, value).raw;
}
std::string_view rawValue(OnboardingStep value) {
    return row(steps, value).raw;
}
std::string_view rawValue(FileKind value) {
    return row(fileKinds, value).raw;
}
std::string_view rawValue(DiskCategory value) {
    return row(diskCategories, value).raw;
}

const ScanCategoryWords& wordsOf(ScanCategory value) {
    return row(scanCategoryWords, value);
}
const SidebarWords& wordsOf(SidebarItem value) {
    return row(sidebarWords, value);
}

std::optional<ScanSchedule> scanScheduleFrom(std::string_view raw) {
    return find(schedules, raw);
}
std::optional<OnboardingStep> onboardingStepFrom(std::string_view raw) {
    return find(steps, raw);
}
std::optional<DiskCategory> diskCategoryFrom(std::string_view raw) {
    return find(diskCategories, raw);
}

}  // namespace morvane
