#include "platform/folder/host_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <sys/stat.h>

#include "model/path_text.h"
#include "platform/folder/default_home.h"
#include "platform/folder/host_values.h"
#include "platform/folder/product_bundle.h"
#include "platform/formats/json.h"
#include "platform/formats/json_fields.h"

namespace morvane::folder {

namespace {

// What holds for a key that is absent; the home folder is looked for on the disk.
Host absentAnswers() {
    Host host;
    host.bundle = productBundle();
    return host;
}

// Puts what `value` says into `host`; a null pointer stands for a key that is absent.
using Take = Wrong (*)(Host& host, const Host& absent, const HostValue* value);

template <auto field>
Wrong take(Host& host, const Host& absent, const HostValue* value) {
    host.*field = absent.*field;
    return value == nullptr ? Wrong() : read(*value, host.*field);
}

Wrong takeNow(Host& host, const Host&, const HostValue* value) {
    host.now.reset();
    return value == nullptr ? Wrong() : read(*value, host.now.emplace());
}

Wrong takeTimeZone(Host& host, const Host& absent, const HostValue* value) {
    host.region.timeZone = absent.region.timeZone;
    return value == nullptr ? Wrong() : read(*value, host.region.timeZone);
}

Wrong takeLocale(Host& host, const Host& absent, const HostValue* value) {
    host.region.locale = absent.region.locale;
    return value == nullptr ? Wrong() : read(*value, host.region.locale);
}

Wrong takeAnswer(Host& host, const Host& absent, const HostValue* value) {
    if (Wrong wrong = take<&Host::answersNotifications>(host, absent, value); !wrong.empty()) {
        return wrong;
    }
    // Nobody can answer anything else.
    using enum Host::NotificationState;
    if (host.answersNotifications == authorized || host.answersNotifications == denied) return {};
    return value->name + R"( must be one of "authorized", "denied")";
}

// Of these, null is an answer of its own.
Wrong takeVolume(Host& host, const Host& absent, const HostValue* value) {
    host.hasVolume = value != nullptr;
    host.volume = absent.volume;
    if (value == nullptr || value->json.is_null()) return {};
    return read(*value, host.volume.emplace());
}

Wrong takeDevice(Host& host, const Host& absent, const HostValue* value) {
    host.mountedFrom = absent.mountedFrom;
    if (value == nullptr) return {};
    host.mountedFrom.reset();
    return value->json.is_null() ? Wrong() : read(*value, host.mountedFrom.emplace());
}

Wrong takeOpenPanel(Host& host, const Host&, const HostValue* value) {
    host.hasOpenPanel = value != nullptr;
    host.openPanel.reset();
    if (value == nullptr || value->json.is_null()) return {};
    return read(*value, host.openPanel.emplace());
}

Wrong takeAcknowledgements(Host& host, const Host&, const HostValue* value) {
    host.acknowledgements.reset();
    return value == nullptr ? Wrong() : read(*value, host.acknowledgements.emplace());
}

struct Key {
    const char* name;
    Take take;
    bool countsAtStartAlone = false;
    bool nullIsAnAnswer = false;
};

constexpr std::array keys{
    Key{"home", take<&Host::home>, true},
    Key{"now", takeNow, true},
    Key{"timeZone", takeTimeZone, true},
    Key{"locale", takeLocale, true},
    Key{"active", take<&Host::active>},
    Key{"bundle", take<&Host::bundle>, true},
    Key{"fullDiskAccess", take<&Host::fullDiskAccess>},
    Key{"unreadable", take<&Host::unreadable>},
    Key{"immovable", take<&Host::immovable>},
    Key{"mounts", take<&Host::mounts>},
    Key{"hidden", take<&Host::hidden>},
    Key{"packages", take<&Host::packages>},
    Key{"aliases", take<&Host::aliases>},
    Key{"displayNames", take<&Host::displayNames>},
    Key{"runningApplications", take<&Host::runningApplications>},
    Key{"registeredApplications", take<&Host::registeredApplications>},
    Key{"metadata", take<&Host::metadata>},
    Key{"dates", take<&Host::dates>},
    Key{"notifications", take<&Host::notifications>},
    Key{"answersNotifications", takeAnswer},
    Key{"volume", takeVolume, false, true},
    Key{"mountedFrom", takeDevice, false, true},
    Key{"openPanel", takeOpenPanel, false, true},
    Key{"updates", take<&Host::updates>},
    Key{"website", take<&Host::website>},
    Key{"acknowledgements", takeAcknowledgements},
};

// Names come from outside and may hold a line break.
HostError error(std::string line) {
    std::replace_if(line.begin(), line.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    return {std::move(line)};
}

Wrong takeKey(Host& host, const Host& absent, const Key& key, const nlohmann::json& json) {
    const HostValue value{json, key.name};
    const bool isAbsent = json.is_null() && !key.nullIsAnAnswer;
    return key.take(host, absent, isAbsent ? nullptr : &value);
}

HostError unreadable() {
    return {"host.json cannot be read"};
}

// The file's bytes; nothing where there is no file, an error where it cannot be read.
std::variant<std::optional<std::string>, HostError> readBytes(const std::filesystem::path& file) {
    // Not blocking: a pipe of that name is no file, and nobody may write to it.
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!opened && errno == ENOENT) return std::nullopt;
    struct stat status{};
    if (!opened || ::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return unreadable();
    }
    std::string bytes;
    std::vector<char> buffer(std::size_t{64} << 10);
    while (true) {
        const ssize_t count = ::read(opened.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return unreadable();
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > JSONLimits::bytes) return unreadable();
    }
}

HostReading readAnswers(const nlohmann::json* root, const DiskRoot& disk) {
    const Host absent = absentAnswers();
    Host host = absent;
    for (const Key& key : keys) {
        const nlohmann::json* json = root == nullptr ? nullptr : find(*root, key.name);
        if (json == nullptr) continue;
        if (Wrong wrong = takeKey(host, absent, key, *json); !wrong.empty()) {
            return error("host.json: " + wrong);
        }
    }
    if (host.home.empty()) host.home = defaultHome(disk, host.hidden);
    if (host.home.empty()) return error("host.json: home is missing, and /Users has no folder");
    host.home = standardised(host.home);
    return host;
}

}  // namespace

HostReading readHostFile(const std::filesystem::path& file, const DiskRoot& root) {
    auto bytes = readBytes(file);
    if (auto* failed = std::get_if<HostError>(&bytes)) return std::move(*failed);
    const auto& text = std::get<0>(bytes);
    return text ? readHost(*text, root) : readAnswers(nullptr, root);
}

HostReading readHost(std::string_view text, const DiskRoot& root) {
    const auto document = readJSON(text);
    if (!document) return error("host.json is not JSON");
    if (!document->root().is_object()) return error("host.json must hold an object");
    return readAnswers(&document->root(), root);
}

HostReading replaceKeys(Host current, const nlohmann::json& replaced) {
    if (!replaced.is_object()) return error("host must be an object");
    const Host absent = absentAnswers();
    for (const Key& key : keys) {
        const nlohmann::json* json = find(replaced, key.name);
        if (json == nullptr) continue;
        if (key.countsAtStartAlone) {
            return error("host: " + std::string(key.name) + " cannot change while Morvane runs");
        }
        if (Wrong wrong = takeKey(current, absent, key, *json); !wrong.empty()) {
            return error("host: " + wrong);
        }
    }
    return current;
}

}  // namespace morvane::folder
