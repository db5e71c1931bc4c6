#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QIcon>
#include <QtWidgets/QSystemTrayIcon>
#include <memory>

#include "platform/linux/embedding_tray.h"
#include "platform/linux/notifier_host.h"

namespace morvane::linuxdesktop {

// The program's icon in the desktop's tray, whichever kind of tray is there. A tray that comes
// later, or goes and comes back, is followed.
class Tray : public QObject {
    Q_OBJECT

public:
    explicit Tray(const QDBusConnection& bus);

    void setIcon(const QIcon& icon);
    void setToolTip(const QString& text);
    // Whether the icon is wanted; at first it is not.
    void setShown(bool shown);

    // Whether a tray is there that would show the icon, wanted or not. A tray of the newer kind is
    // known some turns after the start.
    [[nodiscard]] bool isPresent() const;
    // Whether the user can see the icon: it is wanted and a tray is there.
    [[nodiscard]] bool isOnView() const { return shown_ && isPresent(); }

signals:
    void isPresentChanged();
    // The user has pressed the icon.
    void activated();

private:
    void trayChanged();
    void update();

    NotifierHost notifierHost_;
    EmbeddingTray embeddingTray_;
    QIcon icon_;
    QString toolTip_;
    bool shown_ = false;
    bool wasPresent_ = false;
    // The toolkit finds out once which kind of tray there is, with the first icon that is made: so
    // it is made when there is one to find. `followsNotifierHost_` is what it found.
    std::unique_ptr<QSystemTrayIcon> trayIcon_;
    bool followsNotifierHost_ = false;
};

}  // namespace morvane::linuxdesktop
