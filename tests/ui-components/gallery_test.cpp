#include <QDir>
#include <gtest/gtest.h>

#include "stage.h"

namespace morvane {
namespace {

// With MORVANE_PICTURES naming a folder, the gallery is left there to look at.
TEST(Gallery, StandsInBothAppearancesWithoutAWarning) {
    Stage stage;
    ASSERT_NE(stage.showFile(QStringLiteral(MORVANE_GALLERY)), nullptr);
    const QString folder = qEnvironmentVariable("MORVANE_PICTURES");
    for (const bool dark : {false, true}) {
        stage.theme().setDark(dark);
        const QImage picture = stage.picture();
        EXPECT_EQ(picture.pixelColor(3, 3).lightness() < 128, dark);
        if (folder.isEmpty()) continue;
        const double ratio = stage.window().effectiveDevicePixelRatio();
        const QString name = QStringLiteral("gallery-%1-%2x.png")
                                 .arg(dark ? QStringLiteral("dark") : QStringLiteral("light"))
                                 .arg(ratio);
        EXPECT_TRUE(picture.save(QDir(folder).filePath(name)));
    }
    EXPECT_EQ(stage.warnings().join(u'\n').toStdString(), "");
}

}  // namespace
}  // namespace morvane
