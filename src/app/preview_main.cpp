#include <QApplication>
#include <QtQml/QQmlExtensionPlugin>
#include <cstdio>
#include <string>
#include <vector>

#include "app/end_signals.h"
#include "app/preview.h"

Q_IMPORT_QML_PLUGIN(Morvane_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Morvane_ArtPlugin)
Q_IMPORT_QML_PLUGIN(Morvane_ComponentsPlugin)
Q_IMPORT_QML_PLUGIN(Morvane_WindowPlugin)

namespace {

int refuse(const std::string& line) {
    std::fprintf(stderr, "morvane-preview: %s\n", line.c_str());
    return 2;
}

}  // namespace

int main(int count, char** words) {
    using namespace morvane;
    const auto read = readOptions(std::vector<std::string>(words + 1, words + count));
    if (const auto* wrong = std::get_if<std::string>(&read)) return refuse(*wrong);
    const auto& options = std::get<PreviewOptions>(read);
    auto opened = folder::FolderPlatform::open(options.disk);
    if (const auto* wrong = std::get_if<std::string>(&opened)) return refuse(*wrong);
    std::optional<folder::EffectFile> effects;
    if (options.effects) {
        effects = folder::EffectFile::open(*options.effects);
        if (!effects) return refuse(options.effects->native() + " cannot be written");
    }

    int ownCount = 1;
    const QApplication application(ownCount, words);
    QApplication::setApplicationName(QStringLiteral("Morvane"));
    QApplication::setDesktopFileName(QStringLiteral("morvane-preview"));
    QApplication::setQuitOnLastWindowClosed(false);
    // Without asking the windows, one of which may lie in the tray.
    const EndSignals endSignals([] { QCoreApplication::exit(0); });
    const Preview preview(std::move(std::get<0>(opened)), options, std::move(effects));
    if (!preview.isOpen()) return 1;
    return QApplication::exec();
}
