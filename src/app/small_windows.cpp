#include "app/small_windows.h"

namespace morvane {

bool SmallWindows::load(QQmlApplicationEngine& engine, QQuickWindow& mainWindow) {
    const qsizetype before = engine.rootObjects().size();
    engine.setInitialProperties({{QStringLiteral("chooser"), QVariant::fromValue(&chooser)},
                                 {QStringLiteral("note"), QVariant::fromValue(&note)},
                                 {QStringLiteral("notice"), QVariant::fromValue(&notice)},
                                 {QStringLiteral("mainWindow"), QVariant::fromValue(&mainWindow)}});
    engine.load(QUrl(QStringLiteral("qrc:/Morvane/Window/Dialogs.qml")));
    return engine.rootObjects().size() > before;
}

}  // namespace morvane
