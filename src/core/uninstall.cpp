#include "removal/uninstall.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "core/app_state.h"
#include "model/path_text.h"
#include "tasks/background.h"
#include "tasks/sleep.h"

namespace morvane {

namespace {

std::vector<RunningApplication> instancesOf(const InstalledApp& app, const Workspace& workspace) {
    std::vector<RunningApplication> found;
    const std::filesystem::path bundle = standardised(app.url);
    for (RunningApplication& running : workspace.runningApplications()) {
        const bool sameID =
            app.bundleID && !app.bundleID->empty() && running.bundleIdentifier == app.bundleID;
        const bool samePlace = running.bundlePath && standardised(*running.bundlePath) == bundle;
        if (sameID || samePlace) found.push_back(std::move(running));
    }
    return found;
}

bool haveEnded(const std::vector<RunningApplication>& applications, const Workspace& workspace) {
    return std::all_of(
        applications.begin(), applications.end(),
        [&](const RunningApplication& running) { return workspace.isTerminated(running); });
}

bool isAmong(const AppPart& part, const std::vector<AppPart>& parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [&](const AppPart& each) { return each.url == part.url; });
}

}  // namespace

std::vector<AppPart> AppState::selectedParts(const InstalledApp& app) const {
    return morvane::selectedParts(app, *excludedAppParts);
}

void AppState::uninstall(const InstalledApp& app) {
    std::vector<AppPart> parts = selectedParts(app);
    if (parts.empty() || *isUninstalling) return;
    isUninstalling = true;
    uninstallResult = std::nullopt;
    scope_.start(runUninstall(shared_from_this(), app, std::move(parts)));
}

Task<bool> AppState::quit(Self self, InstalledApp app) {
    constexpr int mostLooks = 50;
    Workspace& workspace = self->platform().workspace;
    const std::vector<RunningApplication> instances = instancesOf(app, workspace);
    for (const RunningApplication& instance : instances) workspace.terminate(instance);
    for (int look = 0; look < mostLooks; ++look) {
        if (haveEnded(instances, workspace)) co_return true;
        co_await sleepFor(std::chrono::milliseconds(200));
    }
    co_return haveEnded(instances, workspace);
}

Task<void> AppState::runUninstall(Self self, InstalledApp app, std::vector<AppPart> parts) {
    const bool wholeApp = holdsBundle(parts);
    if (wholeApp && !co_await quit(self, app)) {
        self->uninstallResult =
            RemovalFailed{app.name + " didn’t quit. Quit it yourself, then try again."};
        self->isUninstalling = false;
        co_return;
    }
    const auto disposal = [&] {
        return *self->alwaysUseTrash ? Disposal::trash : Disposal::outright;
    };
    const RemovalReport report =
        co_await background([self, &parts, how = disposal()](const StopToken&) {
            std::vector<RemovalTarget> targets;
            for (const AppPart& part : parts) {
                if (part.kind == launchAgentsKind) {
                    unloadAgent(self->platform().processes, part.url);
                }
            }
            targets.reserve(parts.size());
            for (const AppPart& part : parts) targets.push_back(targetOf(part));
            return discard(self->needs_.remover, how, targets);
        });

    std::vector<AppPart> gone;
    for (const AppPart& part : parts) {
        if (isGone(self->platform().files, part.url)) gone.push_back(part);
    }
    self->excludedAppParts.update([&](std::set<std::string>& excluded) {
        for (const AppPart& part : app.parts) excluded.erase(pathText(part.url));
    });
    if (!gone.empty()) self->recordSweep(uninstallSummary(app, gone), report.trashed);
    self->takeOutOfApps(app, gone);
    self->uninstallResult = uninstallResultOf(app, parts, gone, wholeApp, disposal(), report.error);
    self->refreshFreeSpace();
    self->isUninstalling = false;
}

void AppState::takeOutOfApps(const InstalledApp& app, const std::vector<AppPart>& gone) {
    if (holdsBundle(gone)) {
        {
            const AnimatedChange animated(store_);
            apps.update([&](std::vector<InstalledApp>& list) {
                std::erase_if(list, [&](const InstalledApp& each) { return each.url == app.url; });
            });
        }
        const std::vector<InstalledApp> shown = visibleApps();
        selectedAppID = shown.empty() ? std::nullopt : std::optional(pathText(shown.front().url));
        return;
    }
    if (gone.empty()) return;
    apps.update([&](std::vector<InstalledApp>& list) {
        const auto found = std::find_if(list.begin(), list.end(), [&](const InstalledApp& each) {
            return each.url == app.url;
        });
        if (found == list.end()) return;
        std::erase_if(found->parts, [&](const AppPart& part) { return isAmong(part, gone); });
    });
}

}  // namespace morvane
