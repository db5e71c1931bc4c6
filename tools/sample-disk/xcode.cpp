#include <array>
#include <utility>

#include "mac.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

struct Build {
    std::string_view name;  ///< "$" stands for the 28 letters that a build folder ends in
    double megabytes;
    double atLeast;
    double days;
};

constexpr std::array builds{
    Build{"Lighthouse-$", 80, 1.2, 0.3},
    Build{"Ledgerly-$", 60, 1.2, 6},
    Build{"Weather Kit-$", 40, 1.2, 48},
    Build{"tide-tables-$", 30, 1.2, 210},
    Build{"Вокзал-$", 18, 1.2, 95},
    Build{"My-App", 6, 1.1, 330},
    Build{"Spike-$", 0.4, 0, 3},
    Build{"ModuleCache.noindex", 45, 1.2, 0.3},
    Build{"SDKStatCaches.noindex", 5, 1.1, 20},
};

struct Support {
    std::string_view platform;
    std::string_view version;
    double megabytes;
    double days;
};

constexpr std::array supports{
    Support{"iOS", "iPhone17,1 26.1 (23B85)", 90, 20},
    Support{"iOS", "iPhone17,1 26.0.1 (23A355)", 70, 52},
    Support{"iOS", "17.7 (21H16)", 60, 400},
    Support{"watchOS", "Watch7,3 11.6 (22U84)", 30, 120},
    Support{"tvOS", "18.6 (22M84)", 20, 290},
    Support{"visionOS", "RealityDevice14,1 2.6 (22O785)", 14, 350},
    Support{"macOS", "Mac15,6 26.1 (25B78)", 0.6, 16},
};

/// How much the list at an archive's top tells.
enum class Label { full, buildOnly, generic, none };

struct Archive {
    std::string_view name;
    std::string_view version;
    std::string_view build;
    double megabytes;
    double days;
    Label label;
};

constexpr std::array archives{
    Archive{"Ledgerly", "5.0.3", "5033", 34, 18, Label::full},
    Archive{"Ledgerly", "4.9", "4901", 30, 250, Label::full},
    Archive{"Tide Tables", "1.2", "", 16, 430, Label::full},
    Archive{"Lighthouse", "", "77", 9, 88, Label::buildOnly},
    Archive{"SignalKit", "", "", 4, 300, Label::generic},
    Archive{"Lost Label", "", "", 3, 610, Label::none},
};

void planBuild(Plan& disk, const Build& build) {
    std::string name(build.name);
    if (const std::size_t mark = name.find('$'); mark != std::string::npos) {
        name.replace(mark, 1, disk.random("build " + name).lowerLetters(28));
    }
    const std::string folder = inLibrary("Developer/Xcode/DerivedData/" + name + "/");
    disk.file(folder + "Build/Products/Debug-iphonesimulator/App.app/App",
              {.amount = build.megabytes * 0.5, .atLeast = build.atLeast}, build.days);
    disk.file(folder + "Index.noindex/DataStore/v5/records/A0/unit",
              {.amount = build.megabytes * 0.3}, build.days + 1);
    for (int number = 0; number < 20; ++number) {
        disk.file(folder + "Build/Intermediates.noindex/Objects-normal/arm64/part" +
                      std::to_string(number) + ".o",
                  {.amount = build.megabytes * 0.01}, build.days + number % 3);
    }
    PropertyList list = PropertyList::dictionary();
    list.date("LastAccessedDate", disk.ago(folder, build.days)).text("WorkspacePath", name);
    disk.list(folder + "info.plist", list, ListForm::xml, build.days);
}

PropertyList archiveList(const Archive& archive, Moment made) {
    PropertyList list = PropertyList::dictionary();
    if (archive.label != Label::generic) {
        const std::string name(archive.name);
        PropertyList properties = PropertyList::dictionary();
        properties.text("ApplicationPath", "Applications/" + name + ".app");
        properties.text("CFBundleIdentifier", "com.ledgerly.archive");
        if (!archive.version.empty()) {
            properties.text("CFBundleShortVersionString", archive.version);
        }
        if (!archive.build.empty()) {
            properties.text("CFBundleVersion", archive.build);
        }
        properties.text("SigningIdentity", "Apple Development: Sam Ferris")
            .text("Team", "8QX2V7LK4D");
        list.child("ApplicationProperties", std::move(properties));
    }
    list.number("ArchiveVersion", 2).date("CreationDate", made);
    list.text("Name", archive.name).text("SchemeName", archive.name);
    return list;
}

void planArchive(Plan& disk, const Archive& archive) {
    std::string name(archive.name);
    if (!archive.version.empty()) name.append(" ").append(archive.version);
    const Moment made = disk.ago("archive of " + name, archive.days);
    const std::string folder =
        inLibrary("Developer/Xcode/Archives/" + dayText(made) + "/" + name + ", 17.04.xcarchive/");
    if (archive.label != Label::none) {
        disk.list(folder + "Info.plist", archiveList(archive, made),
                  archive.megabytes > 20 ? ListForm::binary : ListForm::xml, archive.days);
    }
    const std::string product = std::string(archive.name) + ".app";
    disk.file(folder + "Products/Applications/" + product + "/binary",
              {.amount = archive.megabytes * 0.4, .atLeast = 0.01}, archive.days);
    disk.file(folder + "dSYMs/" + product + ".dSYM/Contents/Resources/DWARF/binary",
              {.amount = archive.megabytes * 0.6}, archive.days);
}

void planSimulator(Plan& disk, int number) {
    const std::string id = disk.random("simulator " + std::to_string(number)).uuid();
    const std::string folder = inLibrary("Developer/CoreSimulator/Devices/" + id + "/");
    const double days = 20.0 * number + 1;
    PropertyList list = PropertyList::dictionary();
    list.text("UDID", id).text("name", "iPhone " + std::to_string(14 + number));
    list.text("runtime", "com.apple.CoreSimulator.SimRuntime.iOS-26-1").number("state", 1);
    disk.list(folder + "device.plist", list, ListForm::binary, days);
    disk.file(folder + "data/Library/Caches/com.apple.mobile.db", {.amount = 16}, days);
    disk.file(folder + "data/Containers/Bundle/Application/main.data", {.amount = 20}, days);
}

}  // namespace

void planXcode(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Build& build : builds) {
        planBuild(disk, build);
    }
    for (const Support& support : supports) {
        const std::string folder =
            inLibrary("Developer/Xcode/" + std::string(support.platform) + " DeviceSupport/" +
                      std::string(support.version) + "/");
        disk.file(folder + "Symbols/System/Library/dyld/dyld_shared_cache_arm64e",
                  {.amount = support.megabytes * 0.8, .atLeast = 0.01}, support.days);
        disk.file(folder + "Symbols/usr/lib/libobjc.A.dylib", {.amount = support.megabytes * 0.2},
                  support.days);
    }
    for (const Archive& archive : archives) {
        planArchive(disk, archive);
    }
    disk.text(inLibrary("Developer/Xcode/Archives/2025-06-01/notes.txt"), "not an archive\n", 170);
    for (int number = 0; number < 4; ++number) {
        planSimulator(disk, number);
    }
    disk.file(inLibrary("Developer/CoreSimulator/Caches/dyld/25B78/cache.map"),
              {.amount = 34, .atLeast = 0.1}, 26);
    disk.file(inLibrary("Developer/CoreSimulator/Caches/dyld/25A362/cache.map"), {.amount = 16},
              70);
    disk.text(inLibrary("Developer/CoreSimulator/Caches/com.apple.marker"), "", 70);
    disk.file(inLibrary("Developer/Xcode/UserData/IB Support/Simulator Devices/state.db"),
              {.amount = 3}, 5);
}

}  // namespace morvane::sample
