#include "core/history_json.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "model/path_text.h"
#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"
#include "platform/formats/property_list_dates.h"
#include "platform/formats/uuid.h"

namespace morvane {

namespace {

// An identity is a number: however its text was written, it is told in one way.
std::string uppercaseUUID(std::string id) {
    for (char& character : id) {
        if (character >= 'a' && character <= 'f') character = static_cast<char>(character - 32);
    }
    return id;
}

std::optional<HistoryEntry> entryFrom(const nlohmann::json& json) {
    if (!json.is_object()) return std::nullopt;
    const auto text = [&](const char* key) -> std::optional<std::string> {
        const nlohmann::json* value = find(json, key);
        return value == nullptr ? std::nullopt : asText(*value);
    };
    const nlohmann::json* number = find(json, "date");
    const nlohmann::json* restored = find(json, "restored");
    const nlohmann::json* trashed = find(json, "trashed");
    if (number == nullptr || restored == nullptr || trashed == nullptr) return std::nullopt;

    std::optional<std::string> id = text("id");
    const std::optional<std::string> summary = text("summary");
    const std::optional<double> seconds = asNumber(*number);
    const std::optional<bool> isRestored = asBoolean(*restored);
    if (!id || !isUUID(*id) || !summary || !seconds || !isRestored || !trashed->is_object()) {
        return std::nullopt;
    }
    const std::optional<Instant> date = instantFromListSeconds(*seconds);
    if (!date) return std::nullopt;
    HistoryEntry entry{uppercaseUUID(std::move(*id)), *date, *summary, {}, *isRestored};
    for (const auto& [original, inTrash] : trashed->items()) {
        std::optional<std::string> place = asText(inTrash);
        if (!place) return std::nullopt;
        entry.trashed.emplace(original, std::move(*place));
    }
    return entry;
}

bool isEncodable(const HistoryEntry& entry) {
    if (!isUTF8(entry.summary)) return false;
    for (const auto& [original, inTrash] : entry.trashed) {
        if (!isUTF8(original) || !isUTF8(inTrash)) return false;
    }
    return true;
}

}  // namespace

std::optional<std::string> encodeHistory(const std::vector<HistoryEntry>& history) {
    nlohmann::json list = nlohmann::json::array();
    for (const HistoryEntry& entry : history) {
        if (!isEncodable(entry)) return std::nullopt;
        list.push_back({{"id", entry.id},
                        {"date", listSecondsFromInstant(entry.date)},
                        {"summary", entry.summary},
                        {"trashed", entry.trashed},
                        {"restored", entry.restored}});
    }
    return list.dump();
}

std::optional<std::vector<HistoryEntry>> decodeHistory(std::string_view json) {
    const auto document = readJSON(json);
    if (!document || !document->root().is_array()) return std::nullopt;
    std::vector<HistoryEntry> history;
    for (const nlohmann::json& element : document->root()) {
        std::optional<HistoryEntry> entry = entryFrom(element);
        if (!entry) return std::nullopt;
        history.push_back(std::move(*entry));
    }
    return history;
}

}  // namespace morvane
