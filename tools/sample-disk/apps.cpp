#include "apps_table.h"
#include "mac.h"
#include "picture.h"
#include "property_list.h"

namespace morvane::sample {
namespace {

std::string bundleOf(const App& app) {
    return std::string(app.folder) + "/" + std::string(app.name) + ".app";
}

PropertyList informationOf(const App& app) {
    PropertyList list = PropertyList::dictionary();
    list.text("CFBundleDevelopmentRegion", "en").text("CFBundleExecutable", app.name);
    if (app.identity != Identity::noIdentifier) {
        list.text("CFBundleIdentifier", app.identifier);
    }
    list.text("CFBundleIconFile", "AppIcon").text("CFBundleInfoDictionaryVersion", "6.0");
    list.text("CFBundleName", app.name).text("CFBundlePackageType", "APPL");
    if (app.identity != Identity::onlyBuild) {
        list.text("CFBundleShortVersionString", app.version);
    }
    list.text("CFBundleVersion", app.build).text("LSMinimumSystemVersion", "13.0");
    list.flag("NSHighResolutionCapable", true).text("NSPrincipalClass", "NSApplication");
    PropertyList types = PropertyList::array();
    types.append("public.data");
    PropertyList document = PropertyList::dictionary();
    document.text("CFBundleTypeRole", "Editor").child("LSItemContentTypes", std::move(types));
    PropertyList documents = PropertyList::array();
    documents.append(std::move(document));
    list.child("CFBundleDocumentTypes", std::move(documents));
    return list;
}

void planInformation(Plan& disk, const App& app, const std::string& contents, double days) {
    const std::string path = contents + "Info.plist";
    if (app.identity == Identity::damaged) {
        disk.text(path, "<?xml version=\"1.0\"?>\n<plist version=\"1.0\"><dict><key>CFBundle",
                  days);
        return;
    }
    const bool isBinary = disk.random("form of " + std::string(app.name)).between(0, 1) == 1;
    disk.list(path, informationOf(app), isBinary ? ListForm::binary : ListForm::xml, days);
}

/// A framework is a folder of versions with links from the newest to the top.
void planFramework(Plan& disk, const std::string& contents, const App& app, double days) {
    const std::string name = std::string(app.name) + " Framework";
    const std::string top = contents + "Frameworks/" + name + ".framework/";
    disk.file(top + "Versions/A/" + name, {.amount = app.megabytes * 0.5}, days);
    disk.text(top + "Versions/A/Resources/version.txt", std::string(app.build) + "\n", days);
    disk.link(top + "Versions/Current", "A", days);
    disk.link(top + name, "Versions/Current/" + name, days);
    disk.link(top + "Resources", "Versions/Current/Resources", days);
}

void planBundle(Plan& disk, const App& app) {
    const std::string name(app.name);
    const std::string contents = bundleOf(app) + "/Contents/";
    const double days = static_cast<double>(disk.random("install of " + name).between(3, 560));
    planInformation(disk, app, contents, days);
    disk.text(contents + "PkgInfo", "APPL????", days);
    disk.file(contents + "MacOS/" + name, {.amount = app.megabytes * 0.2, .atLeast = 0.02}, days);
    planFramework(disk, contents, app, days);
    const std::uint64_t variety = disk.random("icon of " + name).next() % 48;
    disk.text(contents + "Resources/AppIcon.icns", iconFile(variety, app.megabytes > 85), days);
    disk.file(contents + "Resources/Assets.car", {.amount = app.megabytes * 0.25}, days);
    for (const std::string_view language : {"en", "de", "zh-Hans", "ar"}) {
        disk.file(contents + "Resources/" + std::string(language) + ".lproj/Localizable.strings",
                  {.amount = app.megabytes * 0.01}, days);
    }
    disk.text(
        contents + "_CodeSignature/CodeResources",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict/></plist>\n",
        days);
    if (app.hasReceipt) {
        disk.text(contents + "_MASReceipt/receipt", disk.random("receipt of " + name).lowerHex(512),
                  days);
    }
}

void planAnswers(Mac& mac, const App& app) {
    const std::string bundle = bundleOf(app);
    if (!app.identifier.empty() && app.identity != Identity::damaged &&
        app.folder != "/Applications/Utilities/More") {
        mac.host.registeredApplications.push_back({std::string(app.identifier), bundle});
    }
    if (app.lastUsedDays >= 0) {
        mac.host.metadata.push_back({.path = bundle,
                                     .lastUsed = mac.disk.ago("use of " + bundle, app.lastUsedDays),
                                     .added = mac.disk.ago("arrival of " + bundle, 600)});
    }
}

}  // namespace

void planApps(Mac& mac) {
    for (const App& app : apps) {
        planBundle(mac.disk, app);
        planAnswers(mac, app);
    }
    // A second program for the shell inside one bundle, under two names of one file.
    const std::string docker = "/Applications/Docker.app/Contents/Resources/bin/";
    mac.disk.file(docker + "docker-compose", {.amount = 12}, 40);
    mac.disk.hardLink(docker + "com.docker.cli", docker + "docker-compose");
    mac.disk.link("/Applications/Sublime.app", "/Applications/Sublime Text.app");
    mac.disk.link("/Applications/Editor.app", "Super Edit.app");
    mac.disk.text("/Applications/.localized", "", 700);
    mac.host.displayNames.push_back({"Nimbus Draw", "/Applications/Nimbus Draw 3.app"});
    mac.host.displayNames.push_back({"Zoom Workplace", "/Applications/zoom.us.app"});
    mac.host.runningApplications = {
        {"com.apple.Safari", "/Applications/Safari.app"},
        {"com.microsoft.VSCode", "/Applications/Visual Studio Code.app"},
        {"com.tinyspeck.slackmacgap", "/Applications/Slack.app"},
    };
}

}  // namespace morvane::sample
