#include "scanners/runtimes.h"

#include <array>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "model/letters.h"
#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"

namespace morvane::CleanupScanner {

namespace {

struct PlatformWord {
    std::string_view identifier;
    std::string_view word;
};

constexpr std::array platformWords{
    PlatformWord{"com.apple.platform.iphonesimulator", "iOS"},
    PlatformWord{"com.apple.platform.watchsimulator", "watchOS"},
    PlatformWord{"com.apple.platform.appletvsimulator", "tvOS"},
    PlatformWord{"com.apple.platform.xrsimulator", "visionOS"},
};

// Beyond these the list is not one that the tool writes. Together they keep every sum of sizes
// within 64 bits.
constexpr std::int64_t largestRuntime = 1'000'000'000'000'000;
constexpr std::size_t mostRuntimes = 4096;

std::optional<std::string> textAt(const nlohmann::json& object, std::string_view key) {
    const nlohmann::json* value = find(object, key);
    return value == nullptr ? std::nullopt : asText(*value);
}

std::int64_t sizeOf(const nlohmann::json& object) {
    const nlohmann::json* value = find(object, "sizeBytes");
    const std::optional<double> size = value == nullptr ? std::nullopt : asNumber(*value);
    if (!size || !(*size >= 1) || *size > static_cast<double>(largestRuntime)) return 0;
    return static_cast<std::int64_t>(*size);
}

std::optional<Runtime> runtimeInfo(const nlohmann::json& object) {
    std::optional<std::string> id = textAt(object, "identifier");
    const nlohmann::json* deletable = find(object, "deletable");
    const bool isKept = deletable != nullptr && asBoolean(*deletable) == false;
    const std::int64_t bytes = sizeOf(object);
    if (!id || isKept || bytes < 1) return std::nullopt;
    return Runtime{
        .id = std::move(*id),
        .platform = std::string(platformName(textAt(object, "platformIdentifier").value_or(""))),
        .version = textAt(object, "version").value_or(""),
        .bytes = bytes};
}

std::map<std::string, std::string> newestByPlatform(const std::vector<Runtime>& runtimes) {
    std::map<std::string, std::string> newest;
    for (const Runtime& runtime : runtimes) {
        const auto [held, isFirst] = newest.try_emplace(runtime.platform, runtime.version);
        if (!isFirst && compareNumerically(runtime.version, held->second) > 0) {
            held->second = runtime.version;
        }
    }
    return newest;
}

CleanupItem runtimeItem(const Runtime& runtime, bool isNewest) {
    return {.id = "rt:" + runtime.id,
            .name = runtime.platform + " " + runtime.version + " runtime",
            .bytes = runtime.bytes,
            .safety = isNewest ? Safety::review : Safety::safe,
            .location = "Simulator runtime · removed with simctl",
            .explanation = {},
            .lastUsed = isNewest ? "Newest " + runtime.platform : "Older version",
            .revealURL = {},
            .action = CommandAction{simulatorTool, {"simctl", "runtime", "delete", runtime.id}}};
}

}  // namespace

std::string_view platformName(std::string_view identifier) {
    for (const PlatformWord& row : platformWords) {
        if (row.identifier == identifier) return row.word;
    }
    return "Simulator";
}

std::vector<Runtime> runtimesIn(std::string_view output) {
    std::vector<Runtime> runtimes;
    const std::optional<JSONDocument> document = readJSON(output);
    if (!document || !document->root().is_object()) return {};
    for (const nlohmann::json& inner : document->root()) {
        if (!inner.is_object()) return {};
        std::optional<Runtime> runtime = runtimeInfo(inner);
        if (runtime && runtimes.size() < mostRuntimes) runtimes.push_back(std::move(*runtime));
    }
    return runtimes;
}

std::vector<CleanupItem> runtimeItems(const std::vector<Runtime>& runtimes) {
    const std::map<std::string, std::string> newest = newestByPlatform(runtimes);
    std::vector<CleanupItem> items;
    for (const Runtime& runtime : runtimes) {
        const bool isNewest = compareNumerically(runtime.version, newest.at(runtime.platform)) == 0;
        items.push_back(runtimeItem(runtime, isNewest));
    }
    return items;
}

}  // namespace morvane::CleanupScanner
