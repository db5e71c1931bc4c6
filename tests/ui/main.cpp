#include <QGuiApplication>
#include <QtPlugin>
#include <gtest/gtest.h>

Q_IMPORT_PLUGIN(Morvane_ArtPlugin)
Q_IMPORT_PLUGIN(Morvane_ThemePlugin)
Q_IMPORT_PLUGIN(Morvane_ComponentsPlugin)
Q_IMPORT_PLUGIN(Morvane_WindowPlugin)

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
