#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "model/cleanup.h"
#include "scanners/scan_context.h"
#include "support/fake_system.h"
#include "tasks/stop_token.h"

namespace morvane::CleanupScanner {

using Path = std::filesystem::path;
using Paths = std::vector<Path>;
using Texts = std::vector<std::string>;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

// A Mac in memory and a task to scan it in.
class ScannerTest : public testing::Test {
protected:
    fakes::FakeSystem system;
    fakes::FakeFiles& files = system.files;
    StopSource stop;

    [[nodiscard]] ScanContext scan() const {
        return {system.platform, system.now, stop.get_token()};
    }
    [[nodiscard]] Path home(std::string_view below) const { return system.home(below); }
    [[nodiscard]] Path library(std::string_view below) const { return system.library(below); }
    [[nodiscard]] Instant ago(std::chrono::nanoseconds age) const { return system.now - age; }
    [[nodiscard]] Instant daysAgo(int days) const { return ago(std::chrono::hours(24 * days)); }
};

[[nodiscard]] inline Texts idsOf(const std::vector<CleanupItem>& items) {
    Texts ids;
    for (const CleanupItem& item : items) ids.push_back(item.id);
    return ids;
}

[[nodiscard]] inline Texts namesOf(const std::vector<CleanupItem>& items) {
    Texts names;
    for (const CleanupItem& item : items) names.push_back(item.name);
    return names;
}

// The item of that id; an empty one, and a failed test, when there is none.
[[nodiscard]] inline CleanupItem itemOf(const std::vector<CleanupItem>& items,
                                        std::string_view id) {
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const CleanupItem& item) { return item.id == id; });
    if (found != items.end()) return *found;
    ADD_FAILURE() << "no item " << id;
    return {};
}

[[nodiscard]] inline Paths pathsOf(const CleanupItem& item) {
    Paths paths;
    const std::vector<CleanupPart>* parts = trashParts(item);
    if (parts == nullptr) return paths;
    for (const CleanupPart& part : *parts) paths.push_back(part.url);
    return paths;
}

// The paths of the item of that id; none when there is no such item.
[[nodiscard]] inline Paths pathsOf(const std::vector<CleanupItem>& items, std::string_view id) {
    for (const CleanupItem& item : items) {
        if (item.id == id) return pathsOf(item);
    }
    return {};
}

}  // namespace morvane::CleanupScanner
