#include "ui/screens/screens.h"

namespace morvane::screens {

Screens::Screens(ScreenNeeds needs)
    : shell(needs),
      sidebar(needs),
      overview(needs),
      sweepReview(needs),
      settings(needs),
      state_(needs.state) {}

std::array<Screen*, 5> Screens::all() {
    return {&shell, &sidebar, &overview, &sweepReview, &settings};
}

Screen* Screens::named(std::string_view name) {
    for (Screen* screen : all()) {
        if (screen->name() == name) return screen;
    }
    return nullptr;
}

std::string Screens::names() {
    std::string names;
    for (const Screen* screen : all()) {
        if (!names.empty()) names += ", ";
        names += screen->name();
    }
    return names;
}

void Screens::becameActive() {
    state_.refreshFreeSpace();
    const bool isOnboarding = !*state_.hasOnboarded;
    if (isOnboarding || *state_.selection == SidebarItem::settings) state_.refreshPermissions();
}

}  // namespace morvane::screens
