#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/app_state.h"
#include "model/case_names.h"

namespace morvane::driver {

// Answers keep their keys in the order in which records declare their fields.
using Answer = nlohmann::ordered_json;

// How a value looks in an answer: a record as an object with its fields' names, a case as its name,
// an absent value as null, a date in ISO 8601, a file URL as the text of its path.
[[nodiscard]] Answer form(bool value);
[[nodiscard]] Answer form(double value);
[[nodiscard]] Answer form(std::int64_t value);
[[nodiscard]] Answer form(const std::string& value);
[[nodiscard]] Answer form(std::string_view value);
[[nodiscard]] Answer form(Instant value);
[[nodiscard]] Answer form(const std::filesystem::path& value);
[[nodiscard]] Answer form(const CleanupPart& value);
[[nodiscard]] Answer form(const CleanupAction& value);
[[nodiscard]] Answer form(const CleanupItem& value);
[[nodiscard]] Answer form(const DevSection& value);
[[nodiscard]] Answer form(const SweepGroup& value);
[[nodiscard]] Answer form(const InstalledApp& value);
[[nodiscard]] Answer form(const AppPart& value);
[[nodiscard]] Answer form(const LargeFile& value);
[[nodiscard]] Answer form(const StorageNode& value);
[[nodiscard]] Answer form(const DiskUsage& value);
[[nodiscard]] Answer form(const DiskUsage::Slice& value);
[[nodiscard]] Answer form(const HistoryEntry& value);
[[nodiscard]] Answer form(const UninstallResult& value);
[[nodiscard]] Answer form(const TrashResult& value);
[[nodiscard]] Answer form(const MovedItems& value);

[[nodiscard]] Answer form(const std::map<std::string, std::string>& value);

// Declared ahead of one another, since each may hold any other.
template <class Case>
    requires std::is_enum_v<Case>
[[nodiscard]] Answer form(Case value);
template <class T>
[[nodiscard]] Answer form(const std::optional<T>& value);
template <class T>
[[nodiscard]] Answer form(const std::vector<T>& values);
// In ascending order of code points, which for UTF-8 is that of the bytes.
template <class T>
[[nodiscard]] Answer form(const std::set<T>& values);

template <class Case>
    requires std::is_enum_v<Case>
Answer form(Case value) {
    return std::string(caseName(value));
}

template <class T>
Answer form(const std::optional<T>& value) {
    return value ? form(*value) : Answer(nullptr);
}

template <class T>
Answer form(const std::vector<T>& values) {
    Answer list = Answer::array();
    for (const T& value : values) list.push_back(form(value));
    return list;
}

template <class T>
Answer form(const std::set<T>& values) {
    std::set<std::string> texts;
    for (const T& value : values) texts.insert(form(value).template get<std::string>());
    Answer list = Answer::array();
    for (const std::string& text : texts) list.push_back(text);
    return list;
}

}  // namespace morvane::driver
