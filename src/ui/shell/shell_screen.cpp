#include "ui/shell/shell_screen.h"

#include "model/words.h"
#include "services/updater.h"
#include "ui/screens/views.h"
#include "ui/shell/commands.h"

namespace morvane::screens {

namespace {

bool isEnabled(Command command, const ScreenNeeds& needs) {
    switch (command) {
        case Command::about:
            return true;
        case Command::checkForUpdates:
            return needs.updater.canCheckForUpdates();
        case Command::settings:
        case Command::scanNow:
        case Command::review:
            break;
    }
    return *needs.state.hasOnboarded;
}

std::vector<Menu> menusOf(const ScreenNeeds& needs) {
    std::vector<Menu> menus;
    for (const CommandWords& each : commands) {
        if (menus.empty() || menus.back().title != each.menu) {
            menus.push_back({.title = std::string(each.menu)});
        }
        MenuItem item{.id = std::string(each.id),
                      .label = std::string(each.title),
                      .enabled = isEnabled(each.value, needs)};
        if (!each.key.empty()) item.key = std::string(each.key);
        menus.back().items.push_back(std::move(item));
    }
    return menus;
}

}  // namespace

ShellScreen::ShellScreen(ScreenNeeds needs) : needs_(needs) {
    onPress("menus.items", [this](const Press& press) { choose(press.row); });
}

ShellContent ShellScreen::content() const {
    const AppState& state = needs_.state;
    const bool hasOnboarded = *state.hasOnboarded;
    return {.content = hasOnboarded ? "main" : "onboarding",
            .windowTitle = hasOnboarded ? std::string(wordsOf(itemOnView(state)).title) : "Morvane",
            .menus = menusOf(needs_),
            .menuBarExtra = {.visible = *state.showInMenuBar,
                             .label = capacityText(gigabytes(state.disk->freeBytes))}};
}

void ShellScreen::appear() {
    if (hasMeasured_) return;
    hasMeasured_ = true;
    needs_.state.refreshDisk();
}

void ShellScreen::choose(const std::string& command) {
    for (const CommandWords& each : commands) {
        if (each.id != command) continue;
        switch (each.value) {
            case Command::about:
                needs_.windows.open("about");
                break;
            case Command::checkForUpdates:
                needs_.updater.checkForUpdates();
                break;
            case Command::settings:
                needs_.state.selection = SidebarItem::settings;
                break;
            case Command::scanNow:
                needs_.state.startScan(true);
                break;
            case Command::review:
                needs_.state.selection = SidebarItem::sweep;
                break;
        }
    }
}

}  // namespace morvane::screens
