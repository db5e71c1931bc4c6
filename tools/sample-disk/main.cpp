#include <algorithm>
#include <iostream>
#include <string>
#include <sys/stat.h>
#include <variant>
#include <vector>

#include "bulk.h"
#include "fit_sizes.h"
#include "mac.h"
#include "options.h"
#include "writer.h"

namespace morvane::sample {
namespace {

constexpr int wrongUse = 2;
constexpr int failed = 1;

int complain(int status, const std::string& line) {
    std::cerr << "morvane-sample-disk: " << line << "\n";
    return status;
}

/// Room for a large disk is asked for generously: a sample must not fill somebody's machine.
std::int64_t wantedSize(const Options& options) {
    constexpr std::int64_t plenty = 40'000'000'000;
    return options.size.value_or(freeBytes(options.folder) >= plenty ? 8'000'000'000
                                                                     : 1'000'000'000);
}

Mac planMac(const Options& options) {
    Mac mac{.disk = Plan(options.seed, options.now.value_or(presentMoment())), .host = {}};
    mac.host.now = options.now;
    planUserFiles(mac);
    planApps(mac);
    planAppCompanions(mac);
    planCaches(mac);
    planLeftovers(mac);
    planBackups(mac);
    planXcode(mac);
    planPackageCaches(mac);
    planProjects(mac);
    planOddNames(mac);
    planSystemFolders(mac);
    planToolScripts(mac);
    return mac;
}

/// The benchmark tree gets what the plan lacks of the wanted entries, and a tenth of the bytes.
BulkTree planBulk(const Options& options, Plan& disk, std::int64_t size) {
    BulkTree bulk{.entries = 0, .bytes = 0, .seed = options.seed, .now = disk.now()};
    if (options.entries) {
        planBulkPlaces(disk);
        const auto planned = static_cast<std::int64_t>(disk.entries().size());
        bulk.entries = std::max<std::int64_t>(0, *options.entries - planned);
        bulk.bytes = std::min(size / 10, bulk.entries / 2 * inBlocks(1));
    }
    return bulk;
}

int makeDisk(const Options& options) {
    if (lookAt(options.folder) == Place::taken) {
        return complain(wrongUse,
                        "\"" + options.folder + "\" is there already and not an empty folder");
    }
    const std::int64_t size = wantedSize(options);
    Mac mac = planMac(options);
    const BulkTree bulk = planBulk(options, mac.disk, size);
    fitSizes(mac.disk, size - bulk.bytes);
    mac.disk.settleFolderTimes();
    if (const auto problem = writeDisk(options.folder, mac.disk, bulk, hostJson(mac.host))) {
        return complain(failed, *problem + " (what was written so far stays)");
    }
    const auto planned = static_cast<std::int64_t>(mac.disk.entries().size());
    std::cout << "A Mac disk lies in " << options.folder << "\n"
              << planned + bulk.entries << " entries\n"
              << bytesOnDisk(mac.disk) + bulk.bytes << " bytes\n";
    return 0;
}

}  // namespace
}  // namespace morvane::sample

int main(int count, char** values) {
    using namespace morvane::sample;
    ::umask(0);  // modes are part of the disk, whoever makes it
    const auto parsed = parseOptions(std::vector<std::string>(values + 1, values + count));
    if (const auto* problem = std::get_if<std::string>(&parsed)) {
        return complain(wrongUse, *problem);
    }
    const Options& options = std::get<Options>(parsed);
    if (options.help) {
        std::cout << usageText();
        return 0;
    }
    return makeDisk(options);
}
