#include "driver/forms.h"

#include "model/path_text.h"
#include "platform/formats/iso8601.h"

namespace morvane::driver {

Answer form(bool value) {
    return value;
}
Answer form(double value) {
    return value;
}
Answer form(std::int64_t value) {
    return value;
}
Answer form(const std::string& value) {
    return value;
}
Answer form(std::string_view value) {
    return std::string(value);
}
Answer form(Instant value) {
    return formatInstant(value);
}
Answer form(const std::filesystem::path& value) {
    return pathText(value);
}

Answer form(const CleanupPart& value) {
    return {{"url", form(value.url)}, {"bytes", value.bytes}};
}

Answer form(const CleanupAction& value) {
    if (const auto* trash = std::get_if<TrashAction>(&value)) {
        return {{"trash", form(trash->parts)}};
    }
    const auto& command = std::get<CommandAction>(value);
    return {{"command",
             {{"executable", form(command.executable)}, {"arguments", form(command.arguments)}}}};
}

Answer form(const CleanupItem& value) {
    return {{"id", value.id},
            {"name", value.name},
            {"bytes", value.bytes},
            {"safety", form(value.safety)},
            {"location", value.location},
            {"explanation", value.explanation},
            {"lastUsed", value.lastUsed},
            {"revealURL", form(value.revealURL)},
            {"action", form(value.action)}};
}

Answer form(const DevSection& value) {
    return {{"id", value.id},
            {"name", value.name},
            {"icon", value.icon},
            {"subtitle", value.subtitle},
            {"items", form(value.items)}};
}

Answer form(const SweepGroup& value) {
    return {{"name", value.name}, {"icon", value.icon}, {"items", form(value.items.get())}};
}

Answer form(const AppPart& value) {
    return {{"kind", value.kind},
            {"url", form(value.url)},
            {"bytes", value.bytes},
            {"isUnreadable", value.isUnreadable}};
}

Answer form(const InstalledApp& value) {
    return {{"url", form(value.url)},
            {"bundleID", form(value.bundleID)},
            {"name", value.name},
            {"version", value.version},
            {"lastUsed", form(value.lastUsed)},
            {"parts", form(value.parts)}};
}

Answer form(const LargeFile& value) {
    return {{"url", form(value.url)},
            {"bytes", value.bytes},
            {"kind", form(value.kind)},
            {"lastUsed", form(value.lastUsed)},
            {"since", form(value.since)}};
}

Answer form(const StorageNode& value) {
    return {{"name", value.name},
            {"url", form(value.url)},
            {"kind", form(value.kind)},
            {"bytes", value.bytes},
            {"children", form(value.children)}};
}

Answer form(const DiskUsage& value) {
    Answer measured = Answer::object();
    for (const auto& [category, bytes] : value.measured) {
        measured[std::string(rawValue(category))] = bytes;
    }
    return {{"volumeName", value.volumeName},         {"totalBytes", value.totalBytes},
            {"freeBytes", value.freeBytes},           {"purgeableBytes", value.purgeableBytes},
            {"systemBytes", form(value.systemBytes)}, {"measured", std::move(measured)},
            {"skipped", form(value.skipped)},         {"isComplete", value.isComplete}};
}

Answer form(const DiskUsage::Slice& value) {
    return {{"kind", std::string(sliceIdentity(value))}, {"bytes", value.bytes}};
}

Answer form(const HistoryEntry& value) {
    return {{"id", value.id},
            {"date", form(value.date)},
            {"summary", value.summary},
            {"trashed", form(value.trashed)},
            {"restored", value.restored}};
}

Answer form(const UninstallResult& value) {
    if (const auto* removed = std::get_if<UninstallRemoved>(&value)) {
        return {{"removed",
                 {{"name", removed->name}, {"mb", removed->mb}, {"wholeApp", removed->wholeApp}}}};
    }
    return {{"failed", std::get<RemovalFailed>(value).message}};
}

Answer form(const TrashResult& value) {
    if (const auto* removed = std::get_if<FilesRemoved>(&value)) {
        return {{"removed", {{"count", removed->count}, {"mb", removed->mb}}}};
    }
    return {{"failed", std::get<RemovalFailed>(value).message}};
}

Answer form(const MovedItems& value) {
    Answer object = Answer::object();
    for (const auto& [original, inTrash] : value) object[pathText(original)] = pathText(inTrash);
    return object;
}

Answer form(const std::map<std::string, std::string>& value) {
    Answer object = Answer::object();
    for (const auto& [key, text] : value) object[key] = text;
    return object;
}

}  // namespace morvane::driver
