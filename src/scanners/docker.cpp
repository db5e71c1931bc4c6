#include "scanners/docker.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <utility>

#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"
#include "scanners/frame.h"
#include "scanners/repaired_text.h"

namespace morvane::CleanupScanner {

namespace {

constexpr std::chrono::seconds toolLimit{15};

// A row of "docker system df" that is offered, and how it is cleared.
struct DockerRow {
    std::string_view type;
    std::string_view id;
    std::string_view name;
    Safety safety;
    std::string_view location;
    std::string_view lastUsed;
    std::array<std::string_view, 4> arguments;  // trailing empty ones are none
};

constexpr std::array dockerRows{
    DockerRow{"Images",
              "docker:images",
              "Unused images",
              Safety::regenerates,
              "docker image prune -a",
              "Not used by any container",
              {"image", "prune", "-a", "-f"}},
    DockerRow{"Build Cache",
              "docker:build",
              "Build cache",
              Safety::regenerates,
              "docker builder prune",
              "Rebuilt when needed",
              {"builder", "prune", "-f"}},
    DockerRow{"Containers",
              "docker:containers",
              "Stopped containers",
              Safety::review,
              "docker container prune",
              "Stopped",
              {"container", "prune", "-f"}},
    DockerRow{"Local Volumes",
              "docker:volumes",
              "Unused volumes",
              Safety::review,
              "docker volume prune · may hold database data",
              "Not used by any container",
              {"volume", "prune", "-a", "-f"}},
};

std::vector<std::string> argumentsOf(const DockerRow& row) {
    std::vector<std::string> arguments(row.arguments.begin(), row.arguments.end());
    std::erase(arguments, std::string{});
    return arguments;
}

std::optional<CleanupItem> dockerItem(const std::filesystem::path& docker, std::string_view line) {
    const std::optional<JSONDocument> document = readJSON(line);
    if (!document) return std::nullopt;
    const nlohmann::json* typeValue = find(document->root(), "Type");
    const nlohmann::json* sizeValue = find(document->root(), "Reclaimable");
    if (typeValue == nullptr || sizeValue == nullptr) return std::nullopt;
    const std::optional<std::string> type = asText(*typeValue);
    const auto row = std::find_if(dockerRows.begin(), dockerRows.end(),
                                  [&](const DockerRow& each) { return each.type == type; });
    const auto size = parseDockerSize(asText(*sizeValue).value_or(""));
    if (row == dockerRows.end() || !size || *size < 1) return std::nullopt;
    return CleanupItem{.id = std::string(row->id),
                       .name = std::string(row->name),
                       .bytes = *size,
                       .safety = row->safety,
                       .location = std::string(row->location),
                       .explanation = {},
                       .lastUsed = std::string(row->lastUsed),
                       .revealURL = {},
                       .action = CommandAction{docker, argumentsOf(*row)}};
}

}  // namespace

std::optional<std::filesystem::path> dockerPath(const ScanContext& scan) {
    const std::array<std::filesystem::path, 4> candidates{
        "/usr/local/bin/docker", "/opt/homebrew/bin/docker",
        scan.platform.home / ".docker/bin/docker",
        "/Applications/Docker.app/Contents/Resources/bin/docker"};
    for (const std::filesystem::path& candidate : candidates) {
        if (scan.platform.files.isExecutableFile(candidate)) return candidate;
    }
    return std::nullopt;
}

std::vector<CleanupItem> dockerItems(const std::filesystem::path& docker, std::string_view output) {
    std::vector<CleanupItem> items;
    const std::string text = repairedUTF8(output);
    // An item stands for all of its kind, so one that is told twice is taken once.
    std::set<std::string> seen;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::optional<CleanupItem> item = dockerItem(docker, rest.substr(0, end));
        if (item && seen.insert(item->id).second) items.push_back(std::move(*item));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return items;
}

std::vector<CleanupItem> scanDocker(const ScanContext& scan) {
    const std::optional<std::filesystem::path> docker = dockerPath(scan);
    if (!docker) return {};
    const auto output =
        toolOutput(scan, *docker, {"system", "df", "--format", "{{json .}}"}, toolLimit);
    return output ? dockerItems(*docker, *output) : std::vector<CleanupItem>{};
}

}  // namespace morvane::CleanupScanner
