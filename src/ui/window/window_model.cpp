#include "ui/window/window_model.h"

#include "services/updater.h"
#include "ui/screens/views.h"

namespace morvane {

WindowModel::WindowModel(screens::Screens& screens, AppState& state, Updater& updater, Scope& scope)
    : screens_(screens),
      state_(state),
      shell_(screens.shell),
      sidebar_(screens.sidebar),
      overview_(screens.overview),
      sweepReview_(screens.sweepReview),
      settings_(screens.settings, state, scope),
      announcer_(state) {
    storeSubscription_ =
        state.store().observe([this](const ChangedFields& changed) { storeChanged(changed); });
    updaterSubscription_ = updater.observe([this] { refresh(); });
    overview_.refresh();
    sweepReview_.refresh();
    settings_.refresh();
    refresh();
}

WindowModel::~WindowModel() = default;

void WindowModel::storeChanged(const ChangedFields& changed) {
    if (changed.contains(state_.history.name()) || changed.contains(state_.ignoredFolders.name())) {
        settings_.lookAgain();
    }
    refresh();
}

void WindowModel::refresh() {
    shell_.refresh();
    sidebar_.refresh();
    showScreen();
    if (onView_ == QLatin1String("overview")) overview_.refresh();
    if (onView_ == QLatin1String("sweepReview")) sweepReview_.refresh();
    if (onView_ == QLatin1String("settings")) settings_.refresh();
    const QString sentence = QString::fromStdString(announcer_.update());
    if (sentence != announcement_) {
        announcement_ = sentence;
        emit announcementChanged();
    }
}

void WindowModel::showScreen() {
    QString name = QStringLiteral("overview");
    screens::Screen* screen = &screens_.overview;
    if (screens::itemOnView(state_) == SidebarItem::sweep) screen = &screens_.sweepReview;
    if (screens::itemOnView(state_) == SidebarItem::settings) screen = &screens_.settings;
    name = QString::fromUtf8(screen->name().data(), static_cast<qsizetype>(screen->name().size()));
    if (name == onView_) return;
    onView_ = name;
    if (screen == &screens_.settings) settings_.lookAgain();
    screen->appear();
    emit onViewChanged();
}

void WindowModel::becameActive() {
    screens_.becameActive();
    if (onView_ == QLatin1String("settings")) settings_.lookAgain();
}

void WindowModel::timePassed() {
    refresh();
}

}  // namespace morvane
