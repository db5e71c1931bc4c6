#include "ui/shell/sidebar_screen.h"

#include <array>
#include <span>

#include "model/words.h"
#include "ui/screens/absent.h"
#include "ui/screens/views.h"

namespace morvane::screens {

namespace {

constexpr std::array cleanItems{SidebarItem::overview, SidebarItem::sweep, SidebarItem::developer};
constexpr std::array manageItems{SidebarItem::uninstaller, SidebarItem::storage,
                                 SidebarItem::large};

SidebarRow rowOf(SidebarItem item, const AppState& state) {
    const SidebarWords& words = wordsOf(item);
    return {.id = std::string(words.raw),
            .label = std::string(words.title),
            .symbol = std::string(words.symbol),
            .selected = itemOnView(state) == item};
}

void addSection(std::vector<SidebarSection>& sections, const char* title,
                std::span<const SidebarItem> items, const AppState& state) {
    SidebarSection section{.title = title};
    for (SidebarItem item : items) {
        if (!isAbsent(item)) section.rows.push_back(rowOf(item, state));
    }
    if (!section.rows.empty()) sections.push_back(std::move(section));
}

}  // namespace

SidebarScreen::SidebarScreen(ScreenNeeds needs) : needs_(needs) {
    const auto select = [this](std::string_view raw) {
        for (const SidebarWords& words : sidebarWords) {
            if (words.raw == raw) needs_.state.selection = words.value;
        }
    };
    onPress("sections.rows", [select](const Press& press) { select(press.row); });
    onPress("settings", [select](const Press&) { select(rawValue(SidebarItem::settings)); });
}

SidebarContent SidebarScreen::content() const {
    const AppState& state = needs_.state;
    const DiskUsage& disk = *state.disk;
    SidebarContent content{
        .brand = "Morvane",
        .settings = rowOf(SidebarItem::settings, state),
        // Every startup disk goes by this name here, whatever its own is.
        .disk = {.name = "Macintosh HD",
                 .free = capacityText(gigabytes(disk.freeBytes)) + " free",
                 .fraction = fractionOf(disk.totalBytes - disk.freeBytes, disk.totalBytes)}};
    addSection(content.sections, "Clean", cleanItems, state);
    addSection(content.sections, "Manage", manageItems, state);
    return content;
}

}  // namespace morvane::screens
