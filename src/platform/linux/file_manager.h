#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <filesystem>

namespace morvane::linuxdesktop {

// Shows items where they lie (org.freedesktop.FileManager1 of the freedesktop file manager
// interface). Where no file manager answers, the folder that holds the item is opened instead.
class FileManager : public QObject {
    Q_OBJECT

public:
    explicit FileManager(const QDBusConnection& bus) : bus_(bus) {}

    void reveal(const std::filesystem::path& place);

private:
    QDBusConnection bus_;
};

}  // namespace morvane::linuxdesktop
