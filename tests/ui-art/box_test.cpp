#include <gtest/gtest.h>

#include "pictures.h"
#include "ui/art/box_painting.h"
#include "ui/art/continuous_corners.h"
#include "ui/art/hatching.h"
#include "ui/art/soft_shadow.h"

namespace morvane {
namespace {

// The image of a box that is painted at its own size.
QImage whole(const BoxLook& look, QSize box, double ratio) {
    BoxPatch patch = patchFor(look, box, ratio);
    patch.image = box + QSize(2 * patch.margin, 2 * patch.margin);
    return paintBox(look, patch, ratio);
}

TEST(ContinuousRect, PassesTheDiagonalWhereAnArcWould) {
    const QPainterPath path = continuousRect(QRectF(0, 0, 100, 80), 20);
    EXPECT_FALSE(path.contains(QPointF(5.7, 5.7)));  // 20 (1 − √½) is 5.86
    EXPECT_TRUE(path.contains(QPointF(6, 6)));
    EXPECT_FALSE(path.contains(QPointF(94.3, 74.3)));
    EXPECT_TRUE(path.contains(QPointF(94, 74)));
}

TEST(ContinuousRect, BeginsToTurnOneAndAHalfRadiiFromTheCorner) {
    const QPainterPath path = continuousRect(QRectF(0, 0, 100, 80), 20);
    EXPECT_TRUE(path.contains(QPointF(31, 0.001)));
    EXPECT_FALSE(path.contains(QPointF(20, 0.1)));
}

TEST(ContinuousRect, IsACapsuleWhenTheRadiusIsHalfTheShorterSide) {
    const QPainterPath path = continuousRect(QRectF(0, 0, 60, 20), 10);
    for (const double angle : {0.2, 0.8, 1.3}) {
        const QPointF direction(-std::cos(angle), -std::sin(angle));
        EXPECT_TRUE(path.contains(QPointF(10, 10) + direction * 9.95));
        EXPECT_FALSE(path.contains(QPointF(10, 10) + direction * 10.05));
    }
}

TEST(ContinuousRect, TakesTooLargeARadiusForACapsuleAndNoneForARectangle) {
    const QRectF rect(0, 0, 60, 20);
    EXPECT_EQ(continuousRect(rect, 500), continuousRect(rect, 10));
    EXPECT_TRUE(continuousRect(rect, 0).contains(QPointF(0.1, 0.1)));
    EXPECT_TRUE(continuousRect(rect, -3).contains(QPointF(0.1, 0.1)));
    EXPECT_TRUE(continuousRect(QRectF(), 5).boundingRect().isEmpty());
}

TEST(Blurred, SpreadsOutAndLosesNothing) {
    QImage point(41, 41, QImage::Format_Alpha8);
    point.fill(0);
    for (int y = 18; y < 23; ++y)
        for (int x = 18; x < 23; ++x) point.scanLine(y)[x] = 255;
    const QImage soft = blurred(point, 2);
    int sum = 0;
    for (int y = 0; y < 41; ++y)
        for (int x = 0; x < 41; ++x) sum += soft.constScanLine(y)[x];
    EXPECT_NEAR(sum, 25 * 255, 60);
    EXPECT_EQ(soft.constScanLine(20)[14], soft.constScanLine(20)[26]);
    EXPECT_GT(soft.constScanLine(20)[20], soft.constScanLine(20)[24]);
    EXPECT_EQ(blurred(point, 0), point);
}

TEST(Blurred, FallsOffLikeAGaussian) {
    // Half a plane, whose blurred edge is the Gaussian's own integral.
    for (const double deviation : {1.0, 1.5, 3.0, 9.0, 18.0}) {
        QImage tall(240, 240, QImage::Format_Alpha8);
        tall.fill(0);
        for (int y = 0; y < 240; ++y)
            for (int x = 120; x < 240; ++x) tall.scanLine(y)[x] = 255;
        const QImage soft = blurred(tall, deviation);
        const uchar* line = soft.constScanLine(120);
        const auto at = [&](double deviations) {
            return static_cast<int>(
                line[static_cast<int>(std::floor(120 + deviations * deviation))]);
        };
        EXPECT_NEAR(line[119] + line[120], 255, 1) << deviation;
        EXPECT_LE(at(-3.1), 1) << deviation;
        EXPECT_GE(at(3.1), 254) << deviation;
    }
    QImage wide(240, 240, QImage::Format_Alpha8);
    wide.fill(0);
    for (int y = 0; y < 240; ++y)
        for (int x = 120; x < 240; ++x) wide.scanLine(y)[x] = 255;
    const QImage soft = blurred(wide, 10);
    const uchar* line = soft.constScanLine(120);
    EXPECT_NEAR(line[110], 43.6, 3);  // 0.95 deviations before the edge: 0.171
    EXPECT_NEAR(line[129], 211.4, 3);
    EXPECT_NEAR(line[100], 6.5, 2);  // 1.95 before it: 0.0256
}

TEST(BoxPatch, IsTheSameForAllLargeBoxesOfALook) {
    const BoxLook look{.fill = Qt::white, .radius = 14, .shadow = Qt::black, .shadowRadius = 1.5};
    EXPECT_EQ(patchFor(look, {200, 100}, 1), patchFor(look, {900, 640}, 1));
    EXPECT_EQ(patchFor(look, {200, 100}, 1), (BoxPatch{{65, 65}, 5, 32, 32}));
}

TEST(BoxPatch, IsTheBoxItselfWhenItIsTooShortToStretch) {
    const BoxLook look{.fill = Qt::white, .radius = 14};
    const BoxPatch patch = patchFor(look, {300, 20}, 1);
    EXPECT_EQ(patch.image, QSize(33, 20));
    EXPECT_EQ(patch.paddingY, 9);
    EXPECT_EQ(patch.margin, 0);
}

TEST(BoxPatch, StretchedIsWhatTheWholeBoxLooksLike) {
    const BoxLook look{.fill = QColor(0xCA3500),
                       .radius = 10,
                       .edge = QColor(0, 0, 0, 60),
                       .edgeWidth = 0.5,
                       .shadow = QColor(0, 0, 0, 90),
                       .shadowRadius = 2,
                       .shadowOffset = 3};
    for (const double ratio : {1.0, 2.0}) {
        const QSize box(160, 120);
        const BoxPatch patch = patchFor(look, box, ratio);
        const QImage small = paintBox(look, patch, ratio);
        const QImage large = whole(look, box, ratio);
        const int far = large.width() - small.width();
        const int deep = large.height() - small.height();
        ASSERT_GT(far, 0);
        ASSERT_GT(deep, 0);
        for (int y = 0; y < large.height(); ++y) {
            const int fromY = y < patch.paddingY ? y : std::max(patch.paddingY, y - deep);
            for (int x = 0; x < large.width(); ++x) {
                const int fromX = x < patch.paddingX ? x : std::max(patch.paddingX, x - far);
                ASSERT_LE(apart(large.pixelColor(x, y), small.pixelColor(fromX, fromY)), 2)
                    << x << ' ' << y;
            }
        }
    }
}

TEST(Box, HasAnOutlineOfExactlyOnePixelInsideItsEdge) {
    const BoxLook look{.fill = Qt::white, .radius = 6, .edge = Qt::black, .edgeWidth = 0.5};
    for (const double ratio : {1.0, 2.0}) {
        const QImage image = whole(look, {60, 40}, ratio);
        EXPECT_EQ(image.pixelColor(30, 0), QColor(Qt::black));
        EXPECT_EQ(image.pixelColor(30, 1), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(0, 20), QColor(Qt::black));
        EXPECT_EQ(image.pixelColor(1, 20), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(59, 20), QColor(Qt::black));
        EXPECT_EQ(image.pixelColor(30, 39), QColor(Qt::black));
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    }
}

TEST(Box, DrawsAWiderOutlineInWholePixels) {
    const BoxLook look{.fill = Qt::white, .edge = Qt::black, .edgeWidth = 1};
    const QImage image = whole(look, {20, 20}, 2);
    EXPECT_EQ(image.pixelColor(10, 1), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(10, 2), QColor(Qt::white));
}

TEST(Box, CastsItsShadowDownwards) {
    const BoxLook look{.fill = Qt::white,
                       .radius = 4,
                       .shadow = QColor(0, 0, 0, 128),
                       .shadowRadius = 2,
                       .shadowOffset = 3};
    const QImage image = whole(look, {60, 40}, 1);
    const int margin = patchFor(look, {60, 40}, 1).margin;
    EXPECT_EQ(margin, 9);
    const int above = image.pixelColor(39, margin - 1).alpha();
    const int below = image.pixelColor(39, margin + 40).alpha();
    EXPECT_LT(above, 12);
    EXPECT_GT(below, 90);
    EXPECT_EQ(image.pixelColor(39, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(39, margin + 20), QColor(Qt::white));
}

TEST(Box, LetsNoShadowThroughATranslucentFilling) {
    const BoxLook look{.fill = QColor(255, 255, 255, 40), .shadow = Qt::black, .shadowRadius = 3};
    const QImage image = whole(look, {60, 60}, 1);
    EXPECT_EQ(image.pixelColor(39, 39).alpha(), 40);
}

TEST(BoxKey, ChangesWithEverythingThatIsSeen) {
    const BoxLook look{.fill = Qt::white, .radius = 4};
    const BoxPatch patch = patchFor(look, {60, 60}, 1);
    const QString key = keyOf(look, patch, 1);
    EXPECT_EQ(key, keyOf(look, patchFor(look, {90, 70}, 1), 1));
    EXPECT_NE(key, keyOf({.fill = Qt::red, .radius = 4}, patch, 1));
    EXPECT_NE(key, keyOf({.fill = QColor(255, 255, 255, 254), .radius = 4}, patch, 1));
    EXPECT_NE(key, keyOf({.fill = Qt::white, .radius = 4.5}, patch, 1));
    EXPECT_NE(key, keyOf(look, patch, 2));
    EXPECT_NE(key, keyOf({.fill = Qt::white, .radius = 4, .edgeWidth = 1}, patch, 1));
}

TEST(Hatching, RisesToTheRightAtItsSpacing) {
    QImage image(40, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHatching(painter, {40, 20}, 10, 4, Qt::black);
    painter.end();
    // Lines meet the bottom at 0, 10, 20…, and the top 20 further on.
    EXPECT_GT(image.pixelColor(10, 19).alpha(), 240);
    EXPECT_GT(image.pixelColor(19, 10).alpha(), 240);
    EXPECT_GT(image.pixelColor(29, 0).alpha(), 240);
    EXPECT_LT(image.pixelColor(15, 19).alpha(), 20);
    EXPECT_LT(image.pixelColor(24, 10).alpha(), 20);
    EXPECT_GT(image.pixelColor(0, 9).alpha(), 240);  // from a line that begins left of it
}

TEST(Hatching, WithoutSpacingDrawsNothingAndEnds) {
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintHatching(painter, {10, 10}, 0, 2, Qt::black);
    painter.end();
    EXPECT_EQ(image.pixelColor(5, 5).alpha(), 0);
}

}  // namespace
}  // namespace morvane
