#include "platform/linux/tray.h"

namespace morvane::linuxdesktop {

Tray::Tray(const QDBusConnection& bus) : notifierHost_(bus) {
    connect(&notifierHost_, &NotifierHost::changed, this, &Tray::trayChanged);
    connect(&embeddingTray_, &EmbeddingTray::changed, this, &Tray::trayChanged);
    wasPresent_ = isPresent();
}

void Tray::setIcon(const QIcon& icon) {
    icon_ = icon;
    if (trayIcon_) trayIcon_->setIcon(icon_);
}

void Tray::setToolTip(const QString& text) {
    toolTip_ = text;
    if (trayIcon_) trayIcon_->setToolTip(toolTip_);
}

void Tray::setShown(bool shown) {
    shown_ = shown;
    update();
}

bool Tray::isPresent() const {
    if (!trayIcon_) return notifierHost_.isPresent() || embeddingTray_.isPresent();
    return followsNotifierHost_ ? notifierHost_.isPresent() : embeddingTray_.isPresent();
}

void Tray::trayChanged() {
    update();
    if (isPresent() == wasPresent_) return;
    wasPresent_ = isPresent();
    emit isPresentChanged();
}

void Tray::update() {
    if (trayIcon_) {
        trayIcon_->setVisible(shown_);
        return;
    }
    if (!shown_ || !isPresent()) return;
    followsNotifierHost_ = notifierHost_.isPresent();
    trayIcon_ = std::make_unique<QSystemTrayIcon>(icon_);
    trayIcon_->setToolTip(toolTip_);
    connect(trayIcon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                // There is no menu, so the press that would open it counts too. The second press
                // of two follows a first one that counted.
                if (reason != QSystemTrayIcon::DoubleClick) emit activated();
            });
    trayIcon_->setVisible(true);
}

}  // namespace morvane::linuxdesktop
