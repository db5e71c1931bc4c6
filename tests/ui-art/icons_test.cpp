#include <QImageReader>
#include <QSet>
#include <gtest/gtest.h>

#include "pictures.h"

namespace morvane {
namespace {

TEST(Icons, AreMadeInEverySizeFromTheLogo) {
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512, 1024}) {
        const QImage icon(
            QStringLiteral(MORVANE_ICONS "/hicolor/%1x%1/apps/morvane.png").arg(size));
        ASSERT_EQ(icon.size(), QSize(size, size)) << size;
        EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << size;
        EXPECT_EQ(icon.pixelColor(size / 2, size / 4).alpha(), 255) << size;
        EXPECT_GT(icon.pixelColor(size * 73 / 100, size * 83 / 100).red(), 230) << size;
    }
}

TEST(Icons, StandInOneFileForAMac) {
    QImageReader reader(QStringLiteral(MORVANE_ICONS "/morvane.icns"), "icns");
    ASSERT_TRUE(reader.canRead()) << reader.errorString().toStdString();
    QSet<int> sides;
    for (int at = 0; at < reader.imageCount(); ++at) {
        ASSERT_TRUE(reader.jumpToImage(at)) << at;
        const QImage icon = reader.read();
        ASSERT_FALSE(icon.isNull()) << at;
        sides.insert(icon.width());
        EXPECT_GT(icon.pixelColor(icon.width() * 73 / 100, icon.width() * 83 / 100).red(), 230);
    }
    EXPECT_EQ(sides, (QSet<int>{16, 32, 64, 128, 256, 512, 1024}));
}

}  // namespace
}  // namespace morvane
