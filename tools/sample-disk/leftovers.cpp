#include <array>

#include "mac.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

struct Remain {
    std::string_view path;  ///< under Library
    double megabytes;
    double atLeast;
    double days;
};

/// What applications left that were thrown away: whole groups over many places, one that sums up
/// to more than a megabyte from two halves, and some that only look like remains.
constexpr std::array remains{
    Remain{"Application Support/com.tapestry.Weaver/Library.tapestry", 60, 1.2, 390},
    Remain{"Caches/com.tapestry.Weaver/Cache.db", 18, 0.1, 390},
    Remain{"Caches/com.tapestry.Weaver.ShipIt/Weaver.zip", 12, 0.1, 395},
    Remain{"Saved Application State/com.tapestry.Weaver.savedState/data.data", 0.3, 0, 390},
    Remain{"Logs/com.tapestry.Weaver/weaver.log", 0.4, 0, 390},
    Remain{"HTTPStorages/net.quillpad.Quill/httpstorages.sqlite", 1.4, 1.1, 610},
    Remain{"HTTPStorages/net.quillpad.Quill.binarycookies", 0.1, 0, 610},
    Remain{"Cookies/net.quillpad.Quill.binarycookies", 0.1, 0, 610},
    Remain{"WebKit/org.mosaic.studio.mac/WebsiteData/ResourceLoad/full.db", 9, 1.1, 200},
    Remain{"Application Support/org.mosaic.studio.mac/mosaic.db", 22, 0.2, 205},
    Remain{"Containers/io.lumen.Darkroom/Data/Documents/Negatives.db", 48, 1.3, 450},
    Remain{"Application Scripts/io.lumen.Darkroom/export.sh", 0.01, 0, 450},
    Remain{"Caches/dev.sandcastle.Simulator/world.data", 26, 1.1, 260},
    Remain{"Application Support/Com.Bramble.Garden/plants.db", 7, 1.2, 330},
    Remain{"Application Support/com.bramble.garden/plants.db", 5, 1.2, 500},
    Remain{"Application Support/com.twohalves.Meter/data.db", 0.7, 0.6, 280},
    Remain{"Caches/com.twohalves.Meter/Cache.db", 0.7, 0.6, 280},
    // Less than a megabyte, so nobody need hear of it.
    Remain{"Application Support/com.tinyleft.Crumb/crumb.db", 0.3, 0, 300},
    // A vendor of whom another application is installed.
    Remain{"Application Support/com.google.DriveFS/cache.db", 14, 1.2, 410},
    Remain{"Caches/com.microsoft.teams/Cache.db", 11, 1.2, 340},
    // Known to the system's registry at a place where nobody looks for applications.
    Remain{"Application Support/com.relaystation.Relay/relay.db", 6, 1.2, 35},
    // Registered too, but its bundle is gone.
    Remain{"Application Support/com.faraway.Lighthouse/lamp.db", 8, 1.2, 700},
    // Names that are no identifiers, and the system's own.
    Remain{"Application Support/Adobe/Common/Media Cache Files/a.cfa", 30, 0, 240},
    Remain{"Application Support/My Project/notes.db", 2, 0, 150},
    Remain{"Application Support/com.acme/shared.db", 1, 0, 18},
    Remain{"Application Support/com.apple.sharedfilelist/list.sfl4", 0.1, 0, 1},
    Remain{"Application Support/COM.APPLE.oldthing/data.db", 3, 0, 600},
    Remain{"Application Support/com.odd.name.plist/data.db", 3, 0, 600},
};

constexpr std::array preferenceIdentifiers{
    "com.tapestry.Weaver", "net.quillpad.Quill", "org.mosaic.studio.mac",
    "io.lumen.Darkroom",   "com.tinyleft.Crumb", "com.relaystation.Relay",
};

}  // namespace

void planLeftovers(Mac& mac) {
    Plan& disk = mac.disk;
    for (const Remain& remain : remains) {
        disk.file(inLibrary(remain.path), {.amount = remain.megabytes, .atLeast = remain.atLeast},
                  remain.days);
    }
    for (const std::string identifier : preferenceIdentifiers) {
        PropertyList list = PropertyList::dictionary();
        list.text("LastVersion", "4.1").flag("DidShowWelcome", true);
        disk.list(inLibrary("Preferences/" + identifier + ".plist"), list, ListForm::xml, 420);
    }
    const std::string relay = inHome("Tools/Relay.app");
    PropertyList list = PropertyList::dictionary();
    list.text("CFBundleIdentifier", "com.relaystation.Relay").text("CFBundleName", "Relay");
    disk.list(relay + "/Contents/Info.plist", list, ListForm::xml, 35);
    disk.file(relay + "/Contents/MacOS/Relay", {.amount = 3}, 35);
    mac.host.registeredApplications.push_back({"com.relaystation.Relay", relay});
    mac.host.registeredApplications.push_back(
        {"com.faraway.Lighthouse", "/Volumes/Archive/Lighthouse.app"});
}

}  // namespace morvane::sample
