#include <array>
#include <utility>

#include "mac.h"
#include "property_list.h"
#include "tool_scripts.h"

namespace morvane::sample {
namespace {

struct Runtime {
    std::string_view platform;
    std::string_view word;
    std::string_view version;
    std::string_view build;
    std::int64_t bytes;  ///< 0: the tool does not say, as of those bundled with the tools
};

constexpr std::array runtimes{
    Runtime{"iphonesimulator", "iOS", "26.1", "23B86", 8'412'663'021},
    Runtime{"iphonesimulator", "iOS", "26.0", "23A343", 8'133'902'336},
    Runtime{"iphonesimulator", "iOS", "17.10", "21K79", 7'020'118'544},
    Runtime{"iphonesimulator", "iOS", "17.9", "21J12", 6'980'400'128},
    Runtime{"watchsimulator", "watchOS", "26.1", "23S34", 3'904'117'760},
    Runtime{"watchsimulator", "watchOS", "11.5", "22T572", 3'610'009'088},
    Runtime{"appletvsimulator", "tvOS", "18.0", "22J356", 0},
    Runtime{"xrsimulator", "visionOS", "26.1", "23N47", 7'551'320'064},
};

std::string runtimeLine(Plan& disk, const Runtime& runtime) {
    const std::string version(runtime.version);
    const std::string word(runtime.word);
    const std::string id = disk.random("runtime " + word + version).uuid();
    const bool isBundled = runtime.bytes == 0;
    std::string json = R"({ "build" : ")" + std::string(runtime.build) + R"(", "deletable" : )" +
                       (isBundled ? "false" : "true") + R"(, "identifier" : ")" + id +
                       R"(", "kind" : ")" + (isBundled ? "Bundled with Xcode" : "Disk Image") +
                       R"(", "lastUsedAt" : ")" + dayText(disk.ago("run of " + id, 30)) +
                       R"(T08:12:40Z", "platformIdentifier" : "com.apple.platform.)" +
                       std::string(runtime.platform) + R"(", "signatureState" : "Verified", )";
    if (!isBundled) {
        json += R"("sizeBytes" : )" + std::to_string(runtime.bytes) + ", ";
    }
    json += R"("path" : "\/Library\/Developer\/CoreSimulator\/Images\/)" + id +
            R"(.dmg", "state" : "Ready", "version" : ")" + version + "\" }";
    return id + "\t" + json + "\n";
}

/// An image that the tool cannot use has neither a version nor a size.
std::string unusableLine(Plan& disk) {
    const std::string id = disk.random("unusable runtime").uuid();
    return id + "\t" + R"({ "deletable" : true, "identifier" : ")" + id +
           R"(", "kind" : "Disk Image", "state" : "Unusable", )" +
           R"("unusableErrorMessage" : "The image is damaged." })" + "\n";
}

struct Volume {
    std::string_view container;
    std::string_view device;
    std::string_view name;
    std::string_view role;
    std::uint64_t bytes;
};

constexpr std::array volumes{
    Volume{"disk1", "disk1s1", "iSCPreboot", "Preboot", 5'910'528},
    Volume{"disk1", "disk1s2", "xART", "xART", 6'311'936},
    Volume{"disk1", "disk1s3", "Hardware", "Hardware", 503'808},
    Volume{"disk1", "disk1s4", "Recovery", "Recovery", 20'480},
    Volume{"disk3", "disk3s1", "Macintosh HD", "System", 12'214'996'992},
    Volume{"disk3", "disk3s2", "Preboot", "Preboot", 8'411'414'528},
    Volume{"disk3", "disk3s3", "Recovery", "Recovery", 1'305'640'960},
    Volume{"disk3", "disk3s4", "Update", "Update", 41'209'856},
    Volume{"disk3", "disk3s5", "Data", "Data", 409'330'876'416},
    Volume{"disk3", "disk3s6", "VM", "VM", 4'294'987'776},
    Volume{"disk3", "disk3s7", "Nix Store", "", 402'751'488},
    Volume{"disk2", "disk2s1", "Recovery", "Recovery", 1'958'322'176},
    Volume{"disk2", "disk2s2", "Update", "Update", 24'576},
};

struct Container {
    std::string_view name;
    std::string_view store;
    std::uint64_t ceiling;
    std::uint64_t free;
};

constexpr std::array containers{
    Container{"disk1", "disk0s1", 524'288'000, 503'967'744},
    Container{"disk3", "disk0s2", 494'384'795'648, 58'217'431'040},
    Container{"disk2", "disk0s3", 5'368'664'064, 3'385'245'696},
};

PropertyList volumeList(Plan& disk, const Volume& volume) {
    PropertyList roles = PropertyList::array();
    if (!volume.role.empty()) {
        roles.append(volume.role);
    }
    PropertyList list = PropertyList::dictionary();
    list.text("APFSVolumeUUID", disk.random(volume.device).uuid());
    list.number("CapacityInUse", volume.bytes).number("CapacityQuota", 0);
    list.number("CapacityReserve", 0).flag("CryptoMigrationOn", false);
    list.text("DeviceIdentifier", volume.device).flag("Encryption", volume.container == "disk3");
    list.flag("FileVault", volume.role == "Data").flag("Locked", false);
    list.text("Name", volume.name).child("Roles", std::move(roles));
    return list;
}

PropertyList containerList(Plan& disk) {
    PropertyList all = PropertyList::array();
    for (const Container& container : containers) {
        PropertyList store = PropertyList::dictionary();
        store.text("DeviceIdentifier", container.store);
        store.text("DiskUUID", disk.random(container.store).uuid())
            .number("Size", container.ceiling);
        PropertyList stores = PropertyList::array();
        stores.append(std::move(store));
        PropertyList inside = PropertyList::array();
        for (const Volume& volume : volumes) {
            if (volume.container == container.name) {
                inside.append(volumeList(disk, volume));
            }
        }
        PropertyList list = PropertyList::dictionary();
        list.text("APFSContainerUUID", disk.random(container.name).uuid());
        list.number("CapacityCeiling", container.ceiling).number("CapacityFree", container.free);
        list.text("ContainerReference", container.name);
        list.text("DesignatedPhysicalStore", container.store).flag("Fusion", false);
        list.child("PhysicalStores", std::move(stores)).child("Volumes", std::move(inside));
        all.append(std::move(list));
    }
    PropertyList top = PropertyList::dictionary();
    top.child("Containers", std::move(all));
    return top;
}

constexpr std::string_view dockerUsage =
    "Images|14|5|21.37GB|6.52GB|14.85GB| (69%)\n"
    "Containers|9|2|1.264GB|318MB|946.2MB| (74%)\n"
    "Local Volumes|11|4|8.903GB|5.11GB|3.793GB| (42%)\n"
    "Build Cache|203|0|6.418GB|0B|6.418GB|\n";

constexpr std::array loadedAgents{
    "com.acme.editor.helper",
    "net.tidewatch.Tidewatch.agent",
    "com.jetbrains.toolbox",
    "com.google.keystone.agent",
};

}  // namespace

void planToolScripts(Mac& mac) {
    Plan& disk = mac.disk;
    disk.text("/usr/bin/xcrun", std::string(xcrunScript), 60, 0755);
    disk.text("/usr/local/bin/docker", std::string(dockerScript), 60, 0755);
    disk.text("/usr/sbin/diskutil", std::string(diskutilScript), 60, 0755);
    disk.text("/bin/launchctl", std::string(launchctlScript), 60, 0755);

    std::string lines;
    for (const Runtime& runtime : runtimes) {
        lines += runtimeLine(disk, runtime);
    }
    lines += unusableLine(disk);
    disk.text("/private/var/db/simulator-runtimes", std::move(lines), 12);
    disk.text("/private/var/db/docker-usage", std::string(dockerUsage), 3);
    disk.list("/private/var/db/apfs-containers.plist", containerList(disk), ListForm::xml, 1);
    std::string agents;
    for (const std::string label : loadedAgents) {
        agents += label + "\t" + inLibrary("LaunchAgents/" + label + ".plist") + "\n";
    }
    disk.text("/private/var/db/loaded-agents", std::move(agents), 1);
}

}  // namespace morvane::sample
