#include <utility>

#include "apps_table.h"
#include "mac.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

/// Folders that applications keep under names of their own choice.
struct OwnName {
    std::string_view path;  ///< under Library
    double megabytes;
    double days;
};

constexpr std::array ownNames{
    OwnName{"Application Support/Code/User/workspaceStorage/state.vscdb", 14, 0.2},
    OwnName{"Application Support/Code/CachedExtensionVSIXs/ms-python.python-2025", 22, 30},
    OwnName{"Application Support/Google/Chrome/Default/History", 6, 2},
    OwnName{"Application Support/Google/Chrome/Default/IndexedDB/db.ldb", 30, 2},
    OwnName{"Application Support/BraveSoftware/Brave-Browser/Default/History", 9, 140},
    OwnName{"Application Support/iTerm2/SavedState/session.plist.data", 1, 0.1},
    OwnName{"Application Support/zoom.us/data/zoomus.enc.db", 4, 9},
    OwnName{"Logs/zoom.us/zoom.us-session.log", 1, 9},
    OwnName{"Application Support/Docker Desktop/settings-store.db", 0.4, 3},
    OwnName{"Application Support/JetBrains/Toolbox/apps/channel.json", 1, 15},
    OwnName{"Caches/JetBrains/Toolbox/download.cache", 18, 15},
    OwnName{"Logs/JetBrains/Toolbox/toolbox.log", 0.6, 15},
    OwnName{"Application Support/JetBrains/IntelliJIdea2025.2/plugins/rust.jar", 12, 8},
    OwnName{"Application Support/GitHub Desktop/Local Storage/leveldb/000012.ldb", 1, 27},
    OwnName{"Logs/GitHub Desktop/2026.desktop.production.log", 0.3, 27},
    OwnName{"Application Support/Slack/IndexedDB/https_app.slack.com.ldb", 34, 0.1},
    OwnName{"Application Support/discord/Cache/Cache_Data/data_3", 24, 12},
    OwnName{"Application Support/Spotify/PersistentCache/Storage/00/file", 46, 0.8},
    OwnName{"Application Support/obsidian/Cache/Cache_Data/data_1", 8, 4},
    OwnName{"Application Support/Postman/Partitions/storage.db", 10, 75},
    OwnName{"Application Support/Figma/DesktopProfile/v40/data_2", 12, 33},
    OwnName{"Application Support/Sublime Text/Packages/User/Preferences.data", 0.3, 160},
    OwnName{"Application Support/Steam/steamapps/common/Board/board.pak", 40, 290},
    OwnName{"Application Support/Firefox/Profiles/k3v9.default-release/places.sqlite", 14, 6},
    // A vendor's folder: what begins with the application's name without blanks is its own.
    OwnName{"Application Support/Acme/SuperEdit2024/styles.data", 5, 18},
    OwnName{"Application Support/Acme/Super Edit 2024/not-mine.data", 1, 18},
    OwnName{"Application Support/Acme/OtherTool/keep.data", 1, 18},
    OwnName{"Caches/ACME/superedit/thumbnails.db", 3, 18},
    OwnName{"Logs/Acme/superedit-crash/report.log", 0.2, 18},
    OwnName{"Application Support/Scratchpad/pads.db", 0.5, 40},
};

void planClassic(Plan& disk, const std::string& identifier, const App& app) {
    const double days = app.lastUsedDays;
    const double size = app.megabytes * 0.04;
    disk.file(inLibrary("Application Support/" + identifier + "/store.db"), {.amount = size}, days);
    disk.file(inLibrary("Caches/" + identifier + "/Cache.db"), {.amount = size * 2}, days);
    disk.file(inLibrary("Caches/" + identifier + "/fsCachedData/" +
                        disk.random("cache of " + identifier).uuid()),
              {.amount = size}, days + 3);
    disk.file(inLibrary("Saved Application State/" + identifier + ".savedState/data.data"),
              {.amount = 0.2}, days);
    disk.file(inLibrary("WebKit/" + identifier + "/WebsiteData/LocalStorage/local.sqlite"),
              {.amount = 0.3}, days);
    disk.file(inLibrary("Logs/" + std::string(app.name) + "/app.log"), {.amount = 0.3}, days);
}

void planChromium(Plan& disk, const std::string& identifier, const App& app) {
    const double days = app.lastUsedDays;
    const double size = app.megabytes * 0.15;
    disk.file(inLibrary("Caches/" + identifier + "/Cache.db"), {.amount = size}, days);
    disk.file(
        inLibrary("Caches/" + identifier + ".ShipIt/update/" + std::string(app.name) + ".zip"),
        {.amount = size}, days + 12);
    disk.file(inLibrary("HTTPStorages/" + identifier + "/httpstorages.sqlite"), {.amount = 0.3},
              days);
    disk.text(inLibrary("HTTPStorages/" + identifier + ".binarycookies"), "cook", days);
    disk.text(inLibrary("Cookies/" + identifier + ".binarycookies"), "cook", days);
    disk.file(inLibrary("Saved Application State/" + identifier + ".savedState/windows.data"),
              {.amount = 0.1}, days);
}

void planSandboxed(Plan& disk, const std::string& identifier, const App& app) {
    const double days = app.lastUsedDays < 0 ? 300 : app.lastUsedDays;
    const std::string data = inLibrary("Containers/" + identifier + "/Data/");
    disk.file(data + "Library/Application Support/" + std::string(app.name) + "/library.sqlite",
              {.amount = app.megabytes * 0.1}, days);
    disk.file(data + "Library/Caches/" + identifier + "/Cache.db", {.amount = app.megabytes * 0.05},
              days);
    disk.folder(data + "Documents");
    disk.link(data + "Desktop", "../../../../Desktop");
    disk.folder(inLibrary("Application Scripts/" + identifier));
}

void planPreferences(Plan& disk, const std::string& identifier, double days) {
    PropertyList list = PropertyList::dictionary();
    list.flag("SUEnableAutomaticChecks", true).text("NSWindow Frame Main", "120 80 1280 820 0 0");
    list.date("LastLaunch", disk.ago("launch of " + identifier, days)).number("LaunchCount", 212);
    disk.list(inLibrary("Preferences/" + identifier + ".plist"), list, ListForm::binary, days);
}

/// A job of a user's own session, as a vendor or a package manager installs it.
struct Agent {
    std::string_view label;
    std::string_view program;
    ListForm form;
};

constexpr std::array agents{
    Agent{"com.acme.editor.helper", "/Applications/Super Edit.app/Contents/MacOS/Super Edit",
          ListForm::xml},
    Agent{"net.tidewatch.Tidewatch.agent", "/Applications/Tidewatch.app/Contents/MacOS/Tidewatch",
          ListForm::binary},
    Agent{"net.tidewatch.Tidewatch.updater", "/Applications/Tidewatch.app/Contents/MacOS/Tidewatch",
          ListForm::xml},
    Agent{"com.jetbrains.toolbox",
          "/Applications/JetBrains Toolbox.app/Contents/MacOS/"
          "JetBrains Toolbox",
          ListForm::xml},
    Agent{"com.google.keystone.agent", "/Users/sam/Library/Google/GoogleSoftwareUpdate/agent",
          ListForm::binary},
    Agent{"homebrew.mxcl.postgresql@17", "/opt/homebrew/opt/postgresql@17/bin/postgres",
          ListForm::xml},
};

void planAgent(Plan& disk, const Agent& agent) {
    PropertyList arguments = PropertyList::array();
    arguments.append(agent.program).append("--background");
    PropertyList list = PropertyList::dictionary();
    list.text("Label", agent.label).child("ProgramArguments", std::move(arguments));
    list.flag("RunAtLoad", true).number("StartInterval", 3'600);
    disk.list(inLibrary("LaunchAgents/" + std::string(agent.label) + ".plist"), list, agent.form,
              190);
}

}  // namespace

void planAppCompanions(Mac& mac) {
    for (const App& app : apps) {
        const std::string identifier(app.identifier);
        switch (app.kit) {
            case Kit::none:
                continue;
            case Kit::classic:
                planClassic(mac.disk, identifier, app);
                break;
            case Kit::chromium:
                planChromium(mac.disk, identifier, app);
                break;
            case Kit::sandboxed:
                planSandboxed(mac.disk, identifier, app);
                break;
        }
        planPreferences(mac.disk, identifier, app.lastUsedDays < 0 ? 300 : app.lastUsedDays);
    }
    for (const OwnName& own : ownNames) {
        mac.disk.file(inLibrary(own.path), {.amount = own.megabytes}, own.days);
    }
    for (const Agent& agent : agents) {
        planAgent(mac.disk, agent);
    }
}

}  // namespace morvane::sample
