#include <algorithm>
#include <string>

#include "measure/disk_usage.h"
#include "platform/formats/property_list.h"

namespace morvane {

namespace {

constexpr std::int64_t mostBytes = std::int64_t{1} << 60;

bool hasRole(const PropertyList& volume, std::string_view role) {
    const PropertyList* roles = volume.find("Roles");
    const PropertyList::Array* list = roles == nullptr ? nullptr : roles->array();
    return list != nullptr &&
           std::any_of(list->begin(), list->end(), [&](const PropertyList& entry) {
               const std::string* text = entry.text();
               return text != nullptr && *text == role;
           });
}

const PropertyList::Array& volumesOf(const PropertyList& container) {
    static const PropertyList::Array none;
    const PropertyList* volumes = container.find("Volumes");
    const PropertyList::Array* list = volumes == nullptr ? nullptr : volumes->array();
    return list == nullptr ? none : *list;
}

bool holdsSystem(const PropertyList& container) {
    const PropertyList::Array& volumes = volumesOf(container);
    return std::any_of(volumes.begin(), volumes.end(),
                       [](const PropertyList& volume) { return hasRole(volume, "System"); });
}

// Whether `device` ("disk3s1s1") is a slice of the container.
bool isContainerOf(const PropertyList& container, const std::string& device) {
    const PropertyList* reference = container.find("ContainerReference");
    const std::string* text = reference == nullptr ? nullptr : reference->text();
    return text != nullptr && device.starts_with(*text + "s");
}

std::string deviceName(std::string mountedFrom) {
    constexpr std::string_view prefix = "/dev/";
    for (std::size_t at = mountedFrom.find(prefix); at != std::string::npos;
         at = mountedFrom.find(prefix)) {
        mountedFrom.erase(at, prefix.size());
    }
    return mountedFrom;
}

const PropertyList* startupContainer(const PropertyList::Array& containers,
                                     const std::optional<std::string>& mountedFrom) {
    if (mountedFrom) {
        const std::string device = deviceName(*mountedFrom);
        for (const PropertyList& container : containers) {
            if (isContainerOf(container, device) && holdsSystem(container)) return &container;
        }
    }
    const auto found = std::find_if(containers.begin(), containers.end(), holdsSystem);
    return found == containers.end() ? nullptr : &*found;
}

}  // namespace

std::optional<std::int64_t> systemBytesFrom(std::string_view propertyList,
                                            const std::optional<std::string>& device) {
    const std::optional<PropertyList> root = readPropertyList(propertyList);
    const PropertyList* containers = root ? root->find("Containers") : nullptr;
    const PropertyList::Array* list = containers == nullptr ? nullptr : containers->array();
    if (list == nullptr) return std::nullopt;
    const auto isDictionary = [](const PropertyList& entry) {
        return entry.dictionary() != nullptr;
    };
    if (!std::all_of(list->begin(), list->end(), isDictionary)) return std::nullopt;
    const PropertyList* chosen = startupContainer(*list, device);
    if (chosen == nullptr) return std::nullopt;

    std::int64_t sum = 0;
    for (const PropertyList& volume : volumesOf(*chosen)) {
        if (hasRole(volume, "Data")) continue;
        const PropertyList* used = volume.find("CapacityInUse");
        const std::optional<std::int64_t> bytes = used == nullptr ? std::nullopt : used->integer();
        // Data from outside: what no disk holds is no figure at all, and would not bear adding up.
        if (bytes && __builtin_add_overflow(sum, *bytes, &sum)) return std::nullopt;
        if (sum < 0 || sum > mostBytes) return std::nullopt;
    }
    return sum;
}

std::optional<std::int64_t> measureSystemBytes(const Platform& platform, const StopToken& token) {
    const std::optional<ToolResult> result = platform.processes.run(
        "/usr/sbin/diskutil", {"apfs", "list", "-plist"}, std::nullopt, token);
    if (!result || result->status != 0) return std::nullopt;
    return systemBytesFrom(result->output, platform.volume.mountedFrom());
}

}  // namespace morvane
