#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/cleanup.h"
#include "model/instant.h"

namespace morvane {

// The kind word of a launch agent, which is unloaded before its file goes. Compared exactly.
inline constexpr const char* launchAgentsKind = "Launch Agents";

// One thing an app keeps. `kind` is a display word. The path of `url` is its identity.
struct AppPart {
    std::string kind;
    std::filesystem::path url;
    std::int64_t bytes = 0;
    bool isUnreadable = false;
    FolderIdentity folder = {};

    bool operator==(const AppPart&) const = default;
};

// One application with everything it keeps; the first part is the bundle itself.
struct InstalledApp {
    std::filesystem::path url;
    std::optional<std::string> bundleID;
    std::string name;
    std::string version;
    std::optional<Instant> lastUsed;
    std::vector<AppPart> parts;

    bool operator==(const InstalledApp&) const = default;
};

// The sum of the parts' sizes in decimal megabytes.
[[nodiscard]] double megabytes(const InstalledApp& app);
[[nodiscard]] bool hasLaunchAgents(const InstalledApp& app);

struct UninstallRemoved {
    std::string name;
    double mb = 0;
    bool wholeApp = false;
    bool operator==(const UninstallRemoved&) const = default;
};
struct RemovalFailed {
    std::string message;
    bool operator==(const RemovalFailed&) const = default;
};
using UninstallResult = std::variant<UninstallRemoved, RemovalFailed>;

}  // namespace morvane
