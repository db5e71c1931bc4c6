#include "platform/linux/file_manager.h"

#include <QtCore/QStringList>

#include "platform/linux/bus_call.h"
#include "platform/linux/file_url.h"
#include "platform/linux/opener.h"

namespace morvane::linuxdesktop {

void FileManager::reveal(const std::filesystem::path& place) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QString startupId;
    call << QStringList(QString::fromStdString(fileURL(place))) << startupId;
    callBus(bus_, call, this, [place](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage) return;
        openByDesktop(fileURL(place.parent_path()));
    });
}

}  // namespace morvane::linuxdesktop
