#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "moment.h"

namespace morvane::sample {

struct RunningApplication {
    std::string bundleIdentifier;
    std::string bundlePath;
};

/// The metadata store's item of a path; each date may be unknown to it.
struct MetadataItem {
    std::string path;
    std::optional<Moment> lastUsed;
    std::optional<Moment> added;
};

struct FileDates {
    std::string path;
    Moment added = 0;
    Moment created = 0;
};

struct NamedPath {
    std::string name;
    std::string path;
};

/// What the system would answer beside the files: the content of host.json.
struct HostAnswers {
    std::optional<Moment> now;
    std::vector<RunningApplication> runningApplications;
    std::vector<NamedPath> registeredApplications;  ///< bundle identifier and path
    std::vector<MetadataItem> metadata;
    std::vector<FileDates> dates;
    std::vector<NamedPath> displayNames;
    std::vector<std::string> hidden;
    std::vector<std::string> packages;
    std::vector<std::string> aliases;
};

/// The text of host.json, ending in a line feed. Paths have to be UTF-8 without "%".
[[nodiscard]] std::string hostJson(const HostAnswers& answers);

}  // namespace morvane::sample
