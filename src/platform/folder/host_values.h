#pragma once

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "platform/folder/host.h"

namespace morvane::folder {

// One value of host.json and the words that name it in a sentence: "metadata./a.lastUsed".
struct HostValue {
    const nlohmann::json& json;
    std::string name;
};

// Each turns a value into what it stands for and gives one sentence that names what is wrong; an
// empty one where nothing is, and only then is `into` to be used. Inside an object, a key that is
// null counts as absent.
using Wrong = std::string;
Wrong read(const HostValue& value, bool& into);
Wrong read(const HostValue& value, std::string& into);
Wrong read(const HostValue& value, Instant& into);
Wrong read(const HostValue& value, std::filesystem::path& into);  // absolute
Wrong read(const HostValue& value, std::vector<std::filesystem::path>& into);
Wrong read(const HostValue& value, std::map<std::filesystem::path, std::string>& into);
Wrong read(const HostValue& value, std::map<std::string, std::filesystem::path>& into);
Wrong read(const HostValue& value, std::map<std::filesystem::path, MetadataStore::Item>& into);
Wrong read(const HostValue& value, std::map<std::filesystem::path, Host::Dates>& into);
Wrong read(const HostValue& value, std::vector<Host::Application>& into);
Wrong read(const HostValue& value, Host::DiskAccess& into);
Wrong read(const HostValue& value, Host::NotificationState& into);
Wrong read(const HostValue& value, VolumeFigures& into);
Wrong read(const HostValue& value, Host::Updates& into);
// What the object does not name stays as it is; a key that is null is missing in the bundle.
Wrong read(const HostValue& value, BundleInfo& into);

}  // namespace morvane::folder
