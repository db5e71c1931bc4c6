#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>

namespace morvane::linuxdesktop {

// How the user wants programs to look and move, by the settings portal
// (org.freedesktop.portal.Settings), followed while the program runs. Until a portal has answered,
// and where there is none, nothing is preferred and motion is not reduced; a portal that goes
// leaves what it said last.
class Appearance : public QObject {
    Q_OBJECT

public:
    enum class Scheme { noPreference, dark, light };

    explicit Appearance(const QDBusConnection& bus);

    [[nodiscard]] Scheme scheme() const { return scheme_; }
    [[nodiscard]] bool reducesMotion() const { return asksForLessMotion_ || !animates_; }

signals:
    void schemeChanged();
    void reducesMotionChanged();

private slots:
    void settingChanged(const QDBusMessage& signal);

private:
    void readAll();
    void read(const QString& group, const QString& key);
    void take(const QString& group, const QString& key, const QVariant& value);

    QDBusConnection bus_;
    QDBusServiceWatcher portal_;
    Scheme scheme_ = Scheme::noPreference;
    bool asksForLessMotion_ = false;
    bool animates_ = true;
};

}  // namespace morvane::linuxdesktop
