#include "platform/folder/host_values.h"

#include <nlohmann/json.hpp>

#include "model/path_text.h"
#include "platform/formats/iso8601.h"
#include "platform/formats/json_fields.h"

namespace morvane::folder {

namespace {

constexpr double longestWait = 1e9;  // seconds, some thirty years

// What stands inside other values. Declared ahead of the templates, which find them here.
Wrong read(const HostValue& value, std::int64_t& into);
Wrong read(const HostValue& value, std::chrono::nanoseconds& into);
Wrong read(const HostValue& value, MetadataStore::Item& into);
Wrong read(const HostValue& value, Host::Dates& into);
Wrong read(const HostValue& value, Host::Application& into);

Wrong must(const HostValue& value, std::string_view be) {
    return value.name + " must be " + std::string(be);
}

// A path as the key of an object.
Wrong readName(const std::string& text, const HostValue& of, std::filesystem::path& into) {
    const std::filesystem::path path = pathFromText(text);
    if (!path.is_absolute() || path.native().find('\0') != std::string::npos) {
        return must(of, "an absolute path, where it names an entry");
    }
    // Entries are looked up by their path without a slash at its end.
    into = standardised(path);
    return {};
}

Wrong readName(const std::string& text, const HostValue&, std::string& into) {
    into = text;
    return {};
}

// The value under `key` of an object; absent or null leaves `into` as it is.
template <class T>
Wrong readField(const HostValue& object, const char* key, T& into) {
    const nlohmann::json* found = find(object.json, key);
    if (found == nullptr || found->is_null()) return {};
    return read(HostValue{*found, object.name + "." + key}, into);
}

template <class T>
Wrong readField(const HostValue& object, const char* key, std::optional<T>& into) {
    const nlohmann::json* found = find(object.json, key);
    if (found == nullptr || found->is_null()) return {};
    return read(HostValue{*found, object.name + "." + key}, into.emplace());
}

template <class T>
Wrong readList(const HostValue& value, std::vector<T>& into) {
    if (!value.json.is_array()) return must(value, "a list");
    into.reserve(value.json.size());
    for (std::size_t index = 0; index < value.json.size(); ++index) {
        const HostValue element{value.json[index], value.name + "[" + std::to_string(index) + "]"};
        if (Wrong wrong = read(element, into.emplace_back()); !wrong.empty()) {
            return wrong;
        }
    }
    return {};
}

template <class Key, class T>
Wrong readMap(const HostValue& value, std::map<Key, T>& into) {
    if (!value.json.is_object()) return must(value, "an object");
    for (const auto& [text, json] : value.json.items()) {
        if (json.is_null()) continue;
        Key key;
        if (Wrong wrong = readName(text, value, key); !wrong.empty()) return wrong;
        const HostValue entry{json, value.name + "." + text};
        if (Wrong wrong = read(entry, into[std::move(key)]); !wrong.empty()) return wrong;
    }
    return {};
}

template <class T, std::size_t count>
Wrong readCase(const HostValue& value, const std::pair<std::string_view, T> (&cases)[count],
               T& into) {
    std::string names;
    const auto text = asText(value.json);
    for (const auto& [name, meaning] : cases) {
        if (text == name) {
            into = meaning;
            return {};
        }
        names += (names.empty() ? "\"" : ", \"") + std::string(name) + "\"";
    }
    return must(value, "one of " + names);
}

Wrong firstOf(std::initializer_list<Wrong> wrongs) {
    for (const Wrong& wrong : wrongs) {
        if (!wrong.empty()) return wrong;
    }
    return {};
}

// A text of the bundle: null takes it away, absent leaves it.
Wrong readBundleField(const HostValue& object, const char* key, std::optional<std::string>& into) {
    const nlohmann::json* found = find(object.json, key);
    if (found == nullptr) return {};
    if (found->is_null()) {
        into.reset();
        return {};
    }
    return read(HostValue{*found, object.name + "." + key}, into.emplace());
}

Wrong read(const HostValue& value, std::int64_t& into) {
    const auto number = asInteger(value.json);
    if (!number) return must(value, "a whole number of bytes");
    into = *number;
    return {};
}

Wrong read(const HostValue& value, std::chrono::nanoseconds& into) {
    const auto seconds = asNumber(value.json);
    if (!seconds || *seconds < 0 || *seconds > longestWait) {
        return must(value, "a number of seconds");
    }
    into = std::chrono::round<std::chrono::nanoseconds>(Seconds(*seconds));
    return {};
}

Wrong read(const HostValue& value, MetadataStore::Item& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf(
        {readField(value, "lastUsed", into.lastUsed), readField(value, "added", into.added)});
}

Wrong read(const HostValue& value, Host::Dates& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf(
        {readField(value, "added", into.added), readField(value, "created", into.created)});
}

Wrong read(const HostValue& value, Host::Application& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf({readField(value, "bundleIdentifier", into.bundleIdentifier),
                    readField(value, "bundlePath", into.bundlePath),
                    readField(value, "refusesToQuit", into.refusesToQuit),
                    readField(value, "quitsAfter", into.quitsAfter)});
}

}  // namespace

Wrong read(const HostValue& value, bool& into) {
    const auto boolean = asBoolean(value.json);
    if (!boolean) return must(value, "true or false");
    into = *boolean;
    return {};
}

Wrong read(const HostValue& value, std::string& into) {
    auto text = asText(value.json);
    if (!text) return must(value, "a text");
    into = std::move(*text);
    return {};
}

Wrong read(const HostValue& value, Instant& into) {
    const auto text = asText(value.json);
    const auto instant = text ? parseInstant(*text) : std::nullopt;
    if (!instant) return must(value, "a date such as \"2026-11-21T12:00:00Z\"");
    into = *instant;
    return {};
}

Wrong read(const HostValue& value, std::filesystem::path& into) {
    const auto text = asText(value.json);
    if (text) into = pathFromText(*text);
    if (!text || !into.is_absolute() || into.native().find('\0') != std::string::npos) {
        return must(value, "an absolute path");
    }
    return {};
}

Wrong read(const HostValue& value, std::vector<std::filesystem::path>& into) {
    return readList(value, into);
}

Wrong read(const HostValue& value, std::map<std::filesystem::path, std::string>& into) {
    return readMap(value, into);
}

Wrong read(const HostValue& value, std::map<std::string, std::filesystem::path>& into) {
    return readMap(value, into);
}

Wrong read(const HostValue& value, std::map<std::filesystem::path, MetadataStore::Item>& into) {
    return readMap(value, into);
}

Wrong read(const HostValue& value, std::map<std::filesystem::path, Host::Dates>& into) {
    return readMap(value, into);
}

Wrong read(const HostValue& value, std::vector<Host::Application>& into) {
    return readList(value, into);
}

Wrong read(const HostValue& value, Host::DiskAccess& into) {
    using enum Host::DiskAccess;
    return readCase(value, {{"probe", probe}, {"granted", granted}, {"denied", denied}}, into);
}

Wrong read(const HostValue& value, Host::NotificationState& into) {
    using enum Host::NotificationState;
    return readCase(value,
                    {{"notDetermined", notDetermined},
                     {"denied", denied},
                     {"authorized", authorized},
                     {"provisional", provisional},
                     {"ephemeral", ephemeral}},
                    into);
}

Wrong read(const HostValue& value, VolumeFigures& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf(
        {readField(value, "name", into.name), readField(value, "total", into.total),
         readField(value, "available", into.available),
         readField(value, "availableForImportantUsage", into.availableForImportantUsage)});
}

Wrong read(const HostValue& value, Host::Updates& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf({readField(value, "canCheck", into.canCheck),
                    readField(value, "checks", into.checks),
                    readField(value, "downloads", into.downloads)});
}

Wrong read(const HostValue& value, BundleInfo& into) {
    if (!value.json.is_object()) return must(value, "an object");
    return firstOf({readBundleField(value, "identifier", into.identifier),
                    readBundleField(value, "shortVersion", into.shortVersion),
                    readBundleField(value, "version", into.version),
                    readBundleField(value, "copyright", into.copyright),
                    readBundleField(value, "updateFeed", into.updateFeed),
                    readBundleField(value, "updateKey", into.updateKey)});
}

}  // namespace morvane::folder
