#include "ui/figures/figure_screens.h"

namespace morvane {

FigureScreens::States FigureScreens::shellStates() {
    const auto select = [this](SidebarItem item) {
        return [this, item] {
            state->scannedAt = system.now;
            state->selection = item;
        };
    };
    const auto resize = [this](int width, int height) {
        return [this, width, height] { window().resize(width, height); };
    };
    const auto measured = [this](std::int64_t total, std::int64_t free) {
        return [this, total, free] {
            state->disk = DiskUsage{.totalBytes = total, .freeBytes = free};
        };
    };
    return {
        {QStringLiteral("shell.start"), [] {}},
        {QStringLiteral("shell.review"), select(SidebarItem::sweep)},
        {QStringLiteral("shell.settings"), select(SidebarItem::settings)},
        {QStringLiteral("shell.hover"), [this] { hover(QStringLiteral("section0Row1")); }},
        {QStringLiteral("shell.selectedHover"), [this] { hover(QStringLiteral("section0Row0")); }},
        {QStringLiteral("shell.focus"), [this] { focus(QStringLiteral("section0Row0")); }},
        {QStringLiteral("shell.narrow"), [this] { drag(QStringLiteral("divider"), -120); }},
        {QStringLiteral("shell.wide"), [this] { drag(QStringLiteral("divider"), 160); }},
        {QStringLiteral("shell.smallest"),
         [this, resize] {
             resize(980, 668)();
             settle();
             drag(QStringLiteral("divider"), 160);
         }},
        {QStringLiteral("shell.noDisk"), measured(0, 0)},
        {QStringLiteral("shell.fullDisk"), measured(500'000'000'000, 0)},
        {QStringLiteral("shell.menuHover"), [this] { hover(QStringLiteral("menu0")); }}};
}

}  // namespace morvane
