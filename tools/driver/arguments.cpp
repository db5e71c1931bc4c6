#include "driver/arguments.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "model/path_text.h"
#include "platform/formats/iso8601.h"
#include "platform/formats/json_fields.h"

namespace morvane::driver {

namespace {

// A name from outside as it is told back: cut short, so that an answer stays one sentence.
std::string told(std::string_view name) {
    constexpr std::size_t longest = 80;
    std::string shown;
    while (!name.empty() && shown.size() < longest) {
        const std::size_t length = std::max<std::size_t>(utf8SequenceLength(name), 1);
        shown += name.substr(0, length);
        name.remove_prefix(length);
    }
    return name.empty() ? shown : shown + "…";
}

}  // namespace

bool Arguments::has(std::string_view name) const {
    return values_ != nullptr && find(*values_, name) != nullptr;
}

bool Arguments::hasValue(std::string_view name) const {
    return has(name) && !find(*values_, name)->is_null();
}

const nlohmann::json* Arguments::value(std::string_view name) {
    read_.emplace_back(name);
    const nlohmann::json* found = values_ == nullptr ? nullptr : find(*values_, name);
    if (found == nullptr) refuse(name, "is missing");
    return found;
}

void Arguments::refuse(std::string_view name, std::string_view why,
                       const std::optional<std::string_view>& what) {
    if (error_) return;
    error_ = "the " + std::string(what_) + " \"" + told(name) + "\" " + std::string(why);
    if (what) *error_ += " \"" + told(*what) + "\"";
}

void Arguments::refuseUnknown() {
    if (values_ == nullptr) return;
    for (const auto& [name, held] : values_->items()) {
        if (std::find(read_.begin(), read_.end(), name) == read_.end()) refuse(name, "is unknown");
    }
}

std::string Arguments::text(std::string_view name) {
    const nlohmann::json* found = value(name);
    const std::optional<std::string> read = found == nullptr ? std::nullopt : asText(*found);
    if (!read) refuse(name, "is not a text");
    return read.value_or("");
}

std::optional<std::string> Arguments::optionalText(std::string_view name) {
    read_.emplace_back(name);
    if (!hasValue(name)) return std::nullopt;
    return text(name);
}

bool Arguments::boolean(std::string_view name) {
    const nlohmann::json* found = value(name);
    const std::optional<bool> read = found == nullptr ? std::nullopt : asBoolean(*found);
    if (!read) refuse(name, "is not a boolean");
    return read.value_or(false);
}

double Arguments::number(std::string_view name) {
    const nlohmann::json* found = value(name);
    const std::optional<double> read = found == nullptr ? std::nullopt : asNumber(*found);
    if (!read) refuse(name, "is not a number");
    return read.value_or(0);
}

std::optional<double> Arguments::optionalNumber(std::string_view name) {
    read_.emplace_back(name);
    if (!hasValue(name)) return std::nullopt;
    return number(name);
}

std::int64_t Arguments::integer(std::string_view name) {
    const nlohmann::json* found = value(name);
    const std::optional<std::int64_t> read = found == nullptr ? std::nullopt : asInteger(*found);
    if (!read) refuse(name, "is not a whole number");
    return read.value_or(0);
}

std::vector<std::string> Arguments::texts(std::string_view name) {
    const nlohmann::json* found = value(name);
    const auto read = found == nullptr ? std::nullopt : asTexts(*found);
    if (!read) refuse(name, "is not a list of texts");
    return read.value_or(std::vector<std::string>{});
}

Instant Arguments::date(std::string_view name) {
    const std::string read = text(name);
    const std::optional<Instant> instant = parseInstant(read);
    if (!instant) refuse(name, "is not an ISO 8601 instant of the years 1678 to 2261");
    return instant.value_or(Instant{});
}

std::optional<Instant> Arguments::optionalDate(std::string_view name) {
    read_.emplace_back(name);
    if (!hasValue(name)) return std::nullopt;
    return date(name);
}

std::filesystem::path Arguments::path(std::string_view name) {
    std::filesystem::path read = pathFromText(text(name));
    if (!read.is_absolute()) refuse(name, "is not an absolute path");
    return read;
}

std::vector<std::filesystem::path> Arguments::paths(std::string_view name) {
    std::vector<std::filesystem::path> read;
    for (const std::string& each : texts(name)) {
        read.push_back(pathFromText(each));
        if (!read.back().is_absolute()) refuse(name, "holds a path that is not absolute");
    }
    return read;
}

}  // namespace morvane::driver
