#pragma once

#include <QQmlEngine>

#include "tasks/scope.h"
#include "ui/settings/settings_screen.h"
#include "ui/window/screen_object.h"

namespace morvane {

// The settings for QML. What they show of the disk is looked up on the pool, never while drawing.
class SettingsObject final : public morvane::ScreenObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

public:
    // `scope` and `state` outlive this.
    SettingsObject(screens::SettingsScreen& screen, AppState& state, Scope& scope,
                   QObject* parent = nullptr);
    ~SettingsObject() override { *isAlive_ = false; }

    // Looks at the disk again and shows what it finds; of several looks the last one counts.
    void lookAgain();

protected:
    [[nodiscard]] QVariantMap read() override;

private:
    static Task<void> look(SettingsObject* self, std::shared_ptr<const bool> isAlive, int number);

    screens::SettingsScreen& screen_;
    AppState& state_;
    Scope& scope_;
    screens::SettingsFacts facts_;
    int looks_ = 0;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

}  // namespace morvane
