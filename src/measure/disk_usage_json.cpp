#include <nlohmann/json.hpp>
#include <string>

#include "measure/disk_usage.h"
#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"

namespace morvane {

std::string encodeDiskUsage(const DiskUsage& disk) {
    nlohmann::ordered_json json;
    json["volumeName"] = disk.volumeName;
    json["totalBytes"] = disk.totalBytes;
    json["freeBytes"] = disk.freeBytes;
    json["purgeableBytes"] = disk.purgeableBytes;
    if (disk.systemBytes) json["systemBytes"] = *disk.systemBytes;
    json["measured"] = nlohmann::ordered_json::array();
    for (const auto& [category, bytes] : disk.measured) {
        json["measured"].push_back(rawValue(category));
        json["measured"].push_back(bytes);
    }
    json["skipped"] = nlohmann::ordered_json::array();
    for (DiskCategory category : disk.skipped) json["skipped"].push_back(rawValue(category));
    json["isComplete"] = disk.isComplete;
    return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

namespace {

std::optional<std::int64_t> bytesUnder(const nlohmann::json& json, const char* key) {
    const nlohmann::json* value = find(json, key);
    return value == nullptr ? std::nullopt : asInteger(*value);
}

std::optional<DiskCategory> categoryFrom(const nlohmann::json& json) {
    const std::optional<std::string> raw = asText(json);
    return raw ? diskCategoryFrom(*raw) : std::nullopt;
}

bool readMeasured(const nlohmann::json& json, DiskUsage& disk) {
    const nlohmann::json* list = find(json, "measured");
    if (list == nullptr || !list->is_array() || list->size() % 2 != 0) return false;
    for (std::size_t index = 0; index < list->size(); index += 2) {
        const std::optional<DiskCategory> category = categoryFrom((*list)[index]);
        const std::optional<std::int64_t> bytes = asInteger((*list)[index + 1]);
        if (!category || !bytes) return false;
        disk.measured[*category] = *bytes;
    }
    return true;
}

bool readSkipped(const nlohmann::json& json, DiskUsage& disk) {
    const nlohmann::json* list = find(json, "skipped");
    if (list == nullptr || !list->is_array()) return false;
    for (const nlohmann::json& element : *list) {
        const std::optional<DiskCategory> category = categoryFrom(element);
        if (!category) return false;
        disk.skipped.insert(*category);
    }
    return true;
}

// The figures are added up and subtracted later; none of a real disk comes near the bound.
bool isPlausible(std::int64_t bytes) {
    constexpr std::int64_t bound = std::int64_t{1} << 60;
    return bytes > -bound && bytes < bound;
}

bool isPlausible(const DiskUsage& disk) {
    for (const auto& [category, bytes] : disk.measured) {
        if (!isPlausible(bytes)) return false;
    }
    return isPlausible(disk.totalBytes) && isPlausible(disk.freeBytes) &&
           isPlausible(disk.purgeableBytes) && isPlausible(disk.systemBytes.value_or(0));
}

}  // namespace

std::optional<DiskUsage> decodeDiskUsage(std::string_view json) {
    const std::optional<JSONDocument> document = readJSON(json);
    if (!document || !document->root().is_object()) return std::nullopt;
    const nlohmann::json& root = document->root();

    const nlohmann::json* name = find(root, "volumeName");
    const nlohmann::json* complete = find(root, "isComplete");
    const std::optional<std::string> volumeName = name == nullptr ? std::nullopt : asText(*name);
    const std::optional<bool> isComplete =
        complete == nullptr ? std::nullopt : asBoolean(*complete);
    const std::optional<std::int64_t> total = bytesUnder(root, "totalBytes");
    const std::optional<std::int64_t> free = bytesUnder(root, "freeBytes");
    const std::optional<std::int64_t> purgeable = bytesUnder(root, "purgeableBytes");
    if (!volumeName || !isComplete || !total || !free || !purgeable) return std::nullopt;

    DiskUsage disk{*volumeName, *total, *free, *purgeable, {}, {}, {}, *isComplete};
    if (const nlohmann::json* system = find(root, "systemBytes");
        system != nullptr && !system->is_null()) {
        disk.systemBytes = asInteger(*system);
        if (!disk.systemBytes) return std::nullopt;
    }
    if (!readMeasured(root, disk) || !readSkipped(root, disk) || !isPlausible(disk)) {
        return std::nullopt;
    }
    return disk;
}

}  // namespace morvane
