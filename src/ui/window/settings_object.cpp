#include "ui/window/settings_object.h"

#include "tasks/background.h"
#include "ui/settings/settings_screen.h"

namespace morvane {

SettingsObject::SettingsObject(screens::SettingsScreen& screen, AppState& state, Scope& scope,
                               QObject* parent)
    : ScreenObject(this, screen, parent), screen_(screen), state_(state), scope_(scope) {
    // The disk has changed behind what is shown of it.
    connect(this, &ScreenObject::refused, this, &SettingsObject::lookAgain);
}

QVariantMap SettingsObject::read() {
    return toVariant(screen_.content(facts_)).toMap();
}

void SettingsObject::lookAgain() {
    scope_.start(look(this, isAlive_, ++looks_));
}

Task<void> SettingsObject::look(SettingsObject* self, std::shared_ptr<const bool> isAlive,
                                int number) {
    if (!*isAlive) co_return;
    const Platform platform = self->state_.platform();
    const std::vector<std::string> folders = *self->state_.ignoredFolders;
    const std::vector<HistoryEntry> history = *self->state_.history;
    screens::SettingsFacts facts =
        co_await background([platform, folders, history](const StopToken&) {
            return screens::lookAtDisk(platform, folders, history);
        });
    if (!*isAlive || number != self->looks_) co_return;
    self->facts_ = std::move(facts);
    self->refresh();
}

}  // namespace morvane
