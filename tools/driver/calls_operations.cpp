#include <algorithm>
#include <set>
#include <utility>

#include "driver/calls.h"
#include "model/path_text.h"

namespace morvane::driver {

namespace {

Invocation doing(std::function<void()> begin) {
    return {[begin = std::move(begin)](const std::shared_ptr<Answer>&) { begin(); }};
}

void addPlain(Calls& calls, const char* name, void (AppState::*operation)()) {
    calls.emplace(name, [operation](Program& program, Arguments&) {
        return doing([&program, operation] { (program.state().*operation)(); });
    });
}

void addForced(Calls& calls, const char* name, const char* argument,
               void (AppState::*operation)(bool)) {
    calls.emplace(name, [operation, argument](Program& program, Arguments& arguments) {
        const bool value = arguments.boolean(argument);
        return doing([&program, operation, value] { (program.state().*operation)(value); });
    });
}

void addWithText(Calls& calls, const char* name, const char* argument,
                 void (AppState::*operation)(const std::string&)) {
    calls.emplace(name, [operation, argument](Program& program, Arguments& arguments) {
        const std::string value = arguments.text(argument);
        return doing([&program, operation, value] { (program.state().*operation)(value); });
    });
}

// The items of `ids`, each once, in their order: of the review screen first, then of the Developer
// screen.
std::vector<CleanupItem> itemsOf(const AppState& state, Arguments& arguments) {
    std::vector<CleanupItem> known = state.sweepItems();
    const std::vector<CleanupItem> developer = state.devItems();
    known.insert(known.end(), developer.begin(), developer.end());
    std::vector<CleanupItem> items;
    std::set<std::string> taken;
    for (const std::string& id : arguments.texts("items")) {
        const auto found = std::find_if(known.begin(), known.end(),
                                        [&](const CleanupItem& item) { return item.id == id; });
        if (found == known.end()) {
            arguments.refuse("items", "names an item that does not exist:", id);
            break;
        }
        if (taken.insert(id).second) items.push_back(*found);
    }
    return items;
}

Invocation applyPreset(Program& program, Arguments& arguments) {
    const auto preset = arguments.oneOf<SweepPreset>("preset");
    return doing([&program, preset] { program.state().applyPreset(preset); });
}

Invocation toggleGroup(Program& program, Arguments& arguments) {
    const std::string name = arguments.text("group");
    const auto state = arguments.oneOf<CheckState>("state");
    const std::vector<SweepGroup> groups = program.state().sweepGroups();
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [&](const SweepGroup& group) { return group.name == name; });
    if (found == groups.end()) {
        arguments.refuse("group", "names a group that does not exist:", name);
        return {};
    }
    return doing([&program, group = *found, state] { program.state().toggleGroup(group, state); });
}

Invocation sweep(Program& program, Arguments& arguments) {
    std::vector<CleanupItem> items = itemsOf(program.state(), arguments);
    const std::optional<std::string> label = arguments.optionalText("label");
    return doing(
        [&program, items = std::move(items), label] { program.state().sweep(items, label); });
}

Invocation restore(Program& program, Arguments& arguments) {
    const std::string id = arguments.text("entry");
    return doing([&program, id] { program.state().restore(HistoryEntry{id, {}, {}, {}, {}}); });
}

Invocation uninstall(Program& program, Arguments& arguments) {
    const std::string path = arguments.text("app");
    const std::vector<InstalledApp>& apps = *program.state().apps;
    const auto found = std::find_if(apps.begin(), apps.end(), [&](const InstalledApp& app) {
        return pathText(app.url) == path;
    });
    if (found == apps.end()) {
        arguments.refuse("app", "names an app that does not exist:", path);
        return {};
    }
    return doing([&program, app = *found] { program.state().uninstall(app); });
}

}  // namespace

void addOperations(Calls& calls) {
    addForced(calls, "startScan", "showOverview", &AppState::startScan);
    addPlain(calls, "cancelScan", &AppState::cancelScan);
    addPlain(calls, "settleScanPhase", &AppState::settleScanPhase);
    addPlain(calls, "finishOnboarding", &AppState::finishOnboarding);
    addForced(calls, "scanApps", "force", &AppState::scanApps);
    addForced(calls, "scanFiles", "force", &AppState::scanFiles);
    addForced(calls, "scanStorage", "force", &AppState::scanStorage);
    addPlain(calls, "scanDeveloper", &AppState::scanDeveloper);
    addPlain(calls, "refreshDisk", &AppState::refreshDisk);
    addPlain(calls, "refreshFreeSpace", &AppState::refreshFreeSpace);
    calls.emplace("applyPreset", applyPreset);
    addWithText(calls, "toggleSweepItem", "id", &AppState::toggleSweepItem);
    addWithText(calls, "toggleDevItem", "id", &AppState::toggleDevItem);
    addWithText(calls, "toggleExpanded", "id", &AppState::toggleExpanded);
    calls.emplace("toggleGroup", toggleGroup);
    addPlain(calls, "addIgnoredFolders", &AppState::addIgnoredFolders);
    addWithText(calls, "removeIgnoredFolder", "path", &AppState::removeIgnoredFolder);
    calls.emplace("sweep", sweep);
    addPlain(calls, "sweepFromMenuBar", &AppState::sweepFromMenuBar);
    addPlain(calls, "undoMenuBarSweep", &AppState::undoMenuBarSweep);
    calls.emplace("restore", restore);
    calls.emplace("uninstall", uninstall);
    addPlain(calls, "trashSelectedFiles", &AppState::trashSelectedFiles);
    addPlain(calls, "autoScanTick", &AppState::autoScanTick);
    addPlain(calls, "remindIfReady", &AppState::remindIfReady);
    addPlain(calls, "refreshPermissions", &AppState::refreshPermissions);
    addPlain(calls, "requestNotifications", &AppState::requestNotifications);
    addPlain(calls, "watchForAccess", &AppState::watchForAccess);
    calls.emplace("relaunch", [](Program& program, Arguments&) {
        return doing([&program] { program.relaunch(); });
    });
}

}  // namespace morvane::driver
