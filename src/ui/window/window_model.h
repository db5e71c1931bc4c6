#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <memory>

#include "platform/changes.h"
#include "ui/screens/announcement.h"
#include "ui/screens/screens.h"
#include "ui/window/review_object.h"
#include "ui/window/screen_object.h"
#include "ui/window/settings_object.h"

namespace morvane {

// The screens as the window shows them: read again once after each turn in which the store changed,
// and of the large ones just the one on view. Main thread.
class WindowModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the program")

    Q_PROPERTY(morvane::ScreenObject* shell READ shell CONSTANT FINAL)
    Q_PROPERTY(morvane::ScreenObject* sidebar READ sidebar CONSTANT FINAL)
    Q_PROPERTY(morvane::ScreenObject* overview READ overview CONSTANT FINAL)
    Q_PROPERTY(morvane::ReviewObject* sweepReview READ sweepReview CONSTANT FINAL)
    Q_PROPERTY(morvane::SettingsObject* settings READ settings CONSTANT FINAL)
    // The name of the screen on view: "overview", "sweepReview", "settings".
    Q_PROPERTY(QString onView READ onView NOTIFY onViewChanged FINAL)
    // What a screen reader is told.
    Q_PROPERTY(QString announcement READ announcement NOTIFY announcementChanged FINAL)

public:
    // All of it outlives this; `scope` is for looks at the disk.
    WindowModel(screens::Screens& screens, AppState& state, Updater& updater, Scope& scope);
    ~WindowModel() override;

    [[nodiscard]] ScreenObject* shell() { return &shell_; }
    [[nodiscard]] ScreenObject* sidebar() { return &sidebar_; }
    [[nodiscard]] ScreenObject* overview() { return &overview_; }
    [[nodiscard]] ReviewObject* sweepReview() { return &sweepReview_; }
    [[nodiscard]] SettingsObject* settings() { return &settings_; }
    [[nodiscard]] QString onView() const { return onView_; }
    [[nodiscard]] QString announcement() const { return announcement_; }

    // The program has come to the front.
    void becameActive();
    // Time has passed: words about days and hours may read otherwise.
    void timePassed();

signals:
    void onViewChanged();
    void announcementChanged();

private:
    void storeChanged(const ChangedFields& changed);
    void refresh();
    void showScreen();

    screens::Screens& screens_;
    AppState& state_;
    ScreenObject shell_;
    ScreenObject sidebar_;
    ScreenObject overview_;
    ReviewObject sweepReview_;
    SettingsObject settings_;
    screens::Announcer announcer_;
    QString onView_;
    QString announcement_;
    Store::Subscription storeSubscription_;
    Subscription updaterSubscription_;
};

}  // namespace morvane
