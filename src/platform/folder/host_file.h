#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <variant>

#include "platform/folder/disk_root.h"
#include "platform/folder/host.h"

namespace morvane::folder {

// Why a host's answers could not be taken: one line that names the key.
struct HostError {
    std::string line;

    bool operator==(const HostError&) const = default;
};
using HostReading = std::variant<Host, HostError>;

// The answers of host.json, `file` of this machine, for the disk `root`. Without a file everything
// stands as when it is absent. Reads alone; touches nothing.
[[nodiscard]] HostReading readHostFile(const std::filesystem::path& file, const DiskRoot& root);

// The same for the file's text.
[[nodiscard]] HostReading readHost(std::string_view text, const DiskRoot& root);

// `current` with the keys of the object `keys` replaced, one that is null by what holds without it.
// An error for a wrong type and for a key that counts at the start alone.
[[nodiscard]] HostReading replaceKeys(Host current, const nlohmann::json& keys);

}  // namespace morvane::folder
