#include "platform/linux/appearance.h"

#include <QtDBus/QDBusVariant>

#include "platform/linux/bus_call.h"

namespace morvane::linuxdesktop {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto object = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");

const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme");
const auto reducedMotion = QStringLiteral("reduced-motion");
// Where motion was told before there was a setting of all desktops.
const auto gnomeInterface = QStringLiteral("org.gnome.desktop.interface");
const auto enableAnimations = QStringLiteral("enable-animations");

// `Read` packs the value twice, later portals and the signal once.
QVariant unpacked(QVariant value) {
    while (value.userType() == qMetaTypeId<QDBusVariant>()) {
        value = qvariant_cast<QDBusVariant>(value).variant();
    }
    return value;
}

// A value the standard does not know counts as none.
Appearance::Scheme schemeOf(const QVariant& value) {
    if (value.userType() != QMetaType::UInt) return Appearance::Scheme::noPreference;
    switch (value.toUInt()) {
        case 1:
            return Appearance::Scheme::dark;
        case 2:
            return Appearance::Scheme::light;
        default:
            return Appearance::Scheme::noPreference;
    }
}

}  // namespace

Appearance::Appearance(const QDBusConnection& bus)
    : bus_(bus), portal_(service, bus, QDBusServiceWatcher::WatchForRegistration) {
    connect(&portal_, &QDBusServiceWatcher::serviceRegistered, this, [this] { readAll(); });
    bus_.connect(QString(), object, interface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QDBusMessage)));
    readAll();
}

void Appearance::readAll() {
    read(appearance, colorScheme);
    read(appearance, reducedMotion);
    read(gnomeInterface, enableAnimations);
}

void Appearance::read(const QString& group, const QString& key) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    call << group << key;
    callBus(bus_, call, this, [this, group, key](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
        take(group, key, unpacked(reply.arguments().at(0)));
    });
}

// Taken as a message: a slot with the value's own type is refused until the toolkit has by chance
// handled one before.
void Appearance::settingChanged(const QDBusMessage& signal) {
    const QVariantList parts = signal.arguments();
    if (parts.size() != 3) return;
    take(parts.at(0).toString(), parts.at(1).toString(), unpacked(parts.at(2)));
}

void Appearance::take(const QString& group, const QString& key, const QVariant& value) {
    const Scheme oldScheme = scheme_;
    const bool reducedBefore = reducesMotion();
    if (group == appearance && key == colorScheme) {
        scheme_ = schemeOf(value);
    } else if (group == appearance && key == reducedMotion) {
        asksForLessMotion_ = value.userType() == QMetaType::UInt && value.toUInt() == 1;
    } else if (group == gnomeInterface && key == enableAnimations) {
        animates_ = value.userType() != QMetaType::Bool || value.toBool();
    }
    if (scheme_ != oldScheme) emit schemeChanged();
    if (reducesMotion() != reducedBefore) emit reducesMotionChanged();
}

}  // namespace morvane::linuxdesktop
