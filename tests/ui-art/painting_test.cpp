#include <gtest/gtest.h>

#include "pictures.h"
#include "ui/art/app_logo.h"
#include "ui/art/idle_illustration.h"
#include "ui/art/pan.h"
#include "ui/art/spotless_illustration.h"
#include "ui/art/sweep_glyph.h"

namespace morvane {
namespace {

// Each painting at one and at two pixels for a unit.
class Painting : public testing::TestWithParam<int> {
protected:
    [[nodiscard]] int scale() const { return GetParam(); }
    [[nodiscard]] QColor at(const QImage& image, double x, double y) const {
        return image.pixelColor(static_cast<int>(x * scale()), static_cast<int>(y * scale()));
    }
    [[nodiscard]] QImage idle(bool dark) const {
        return paintedSquare(scale(), [&](QPainter& p) { paintIdleIllustration(p, dark); });
    }
    [[nodiscard]] QImage spotless(bool dark) const {
        return paintedSquare(scale(), [&](QPainter& p) { paintSpotlessIllustration(p, dark); });
    }
    [[nodiscard]] QImage logo(bool detailed) const {
        return paintedSquare(scale(), [&](QPainter& p) { paintAppLogo(p, detailed); });
    }
};
INSTANTIATE_TEST_SUITE_P(Scales, Painting, testing::Values(1, 2));

TEST(PanShape, HasTheOutlineOfThePanAndItsHandle) {
    const QPainterPath pan = panShape();
    EXPECT_TRUE(pan.contains(QPointF(50, 65)));
    EXPECT_TRUE(pan.contains(QPointF(76.5, 60)));
    EXPECT_TRUE(pan.contains(QPointF(78, 44.5)));  // where the handle overlaps it
    EXPECT_TRUE(pan.contains(QPointF(76, 45)));
    EXPECT_TRUE(pan.contains(QPointF(90, 38)));  // the handle's round end
    EXPECT_FALSE(pan.contains(QPointF(93, 37)));
    EXPECT_FALSE(pan.contains(QPointF(40, 55)));
    EXPECT_FALSE(pan.contains(QPointF(50, 72.5)));
    const QRectF box = pan.boundingRect();
    EXPECT_NEAR(box.bottom(), 72, 0.01);
    EXPECT_GT(box.left(), 27);
    EXPECT_LT(box.left(), 31);
}

TEST(SweepGlyphLine, RunsRoundItsTip) {
    const QRectF box = sweepGlyphLine().boundingRect();
    EXPECT_NEAR(box.right(), 90.9, 0.02);
    EXPECT_NEAR(box.top(), 20.2, 0.02);
    EXPECT_NEAR(box.bottom(), 72, 0.01);
    EXPECT_LT(box.left(), 29);
    // The line leaves the tip where it touches it, so that no corner shows.
    const QPainterPath line = sweepGlyphLine();
    double sharpest = 0;
    for (double part = 0.46; part < 0.64; part += 0.002) {
        const double turn = std::abs(line.angleAtPercent(part + 0.002) - line.angleAtPercent(part));
        sharpest = std::max(sharpest, std::min(turn, 360 - turn));
    }
    EXPECT_LT(sharpest, 12);
}

TEST_P(Painting, StrokesTheGlyphAsWideAsItIsMeasuredOnTwentyFour) {
    const QImage image =
        paintedSquare(scale(), [](QPainter& p) { paintSweepGlyph(p, 2.4, QColor(0x336699)); });
    EXPECT_EQ(at(image, 50, 72), QColor(0x336699));  // 10 wide: from 67 to 77
    EXPECT_EQ(at(image, 50, 68), QColor(0x336699));
    EXPECT_EQ(at(image, 50, 76), QColor(0x336699));
    EXPECT_EQ(at(image, 50, 78).alpha(), 0);
    EXPECT_EQ(at(image, 60, 62).alpha(), 0);  // hollow
}

TEST_P(Painting, IdleStandsOnItsDiscInBothAppearances) {
    const QImage light = idle(false);
    EXPECT_EQ(at(light, 54, 20), QColor(0xF6EEDD));
    EXPECT_EQ(at(light, 60, 60), QColor(0xCA3500));
    EXPECT_EQ(at(light, 86, 40), QColor(0xCA3500));
    EXPECT_EQ(at(light, 2, 2).alpha(), 0);
    const QImage dark = idle(true);
    EXPECT_EQ(at(dark, 54, 20), QColor(0x37312A));
    EXPECT_EQ(at(dark, 60, 60), QColor(0xFF6E32));
}

TEST_P(Painting, IdleHasAHighlightAndCrumbs) {
    const QImage light = idle(false);
    // #FFFFFF at 0.35 on #CA3500; #8A6A33 at 0.6 and #5F7FA0 at 0.7 on #F6EEDD.
    EXPECT_LE(apart(at(light, 55, 65.6), QColor(221, 124, 89)), scale() == 1 ? 40 : 2);
    EXPECT_LE(apart(at(light, 20.5, 64.5), QColor(181, 159, 119)), 2);
    EXPECT_LE(apart(at(light, 14.6, 58.6), QColor(140, 160, 178)), 2);
    const QImage dark = idle(true);
    EXPECT_LE(apart(at(dark, 20.5, 64.5), QColor(160, 142, 110)), 2);
}

TEST_P(Painting, SpotlessHasNoCrumbsButSparkles) {
    const QImage light = spotless(false);
    EXPECT_EQ(at(light, 50, 20), QColor(0xF6EEDD));
    EXPECT_EQ(at(light, 56, 60), QColor(0xCA3500));
    EXPECT_EQ(at(light, 75, 60), QColor(0xF6EEDD));  // the pan stands 4 to the left
    EXPECT_EQ(at(light, 20.5, 64.5), QColor(0xF6EEDD));
    EXPECT_LE(apart(at(light, 24, 35), QColor(0x8A6A33)), 2);
    EXPECT_LE(apart(at(light, 82, 25), QColor(0x5F7FA0)), 2);
    EXPECT_LE(apart(at(spotless(true), 24, 35), QColor(0xE6CC9B)), 2);
}

TEST(Sparkle, HasFourTipsAndAWaist) {
    const QPainterPath star = sparkle({10, 20}, 5);
    ASSERT_EQ(star.elementCount(), 9);
    EXPECT_EQ(QPointF(star.elementAt(0)), QPointF(10, 15));
    EXPECT_EQ(QPointF(star.elementAt(1)), QPointF(11.5, 18.5));
    EXPECT_EQ(QPointF(star.elementAt(2)), QPointF(15, 20));
    EXPECT_EQ(QPointF(star.elementAt(5)), QPointF(8.5, 21.5));
}

TEST_P(Painting, LogoIsAPlateWithRoundCorners) {
    const QImage image = logo(false);
    EXPECT_EQ(at(image, 4, 50).alpha(), 0);
    EXPECT_EQ(at(image, 9.5, 9.5).alpha(), 0);
    EXPECT_EQ(at(image, 50, 9).alpha(), 255);
    EXPECT_EQ(at(image, 50, 90.5).alpha(), 255);
    EXPECT_LE(apart(at(image, 73.5, 79.4), QColor(255, 138, 76)), 4);  // the gradient's middle
    // 84 away from it the ground is all ember.
    EXPECT_LE(apart(at(image, 18, 17), QColor(126, 34, 0)), 10);
}

TEST_P(Painting, LogoCarriesAPanThatFadesDownwards) {
    const QImage image = logo(false);
    const QColor top = at(image, 70, 50);
    const QColor bottom = at(image, 60, 67);
    EXPECT_GT(top.blue(), 190);
    EXPECT_LT(bottom.blue(), top.blue());
    EXPECT_GT(bottom.red(), 220);
}

TEST_P(Painting, LogoInDetailHasLightShadowAndCrumbs) {
    const QImage plain = logo(false);
    const QImage detailed = logo(true);
    EXPECT_GT(apart(at(detailed, 31.5, 20), at(plain, 31.5, 20)), 40);  // light
    EXPECT_GT(apart(at(detailed, 23.4, 62), at(plain, 23.4, 62)), 80);  // crumb
    EXPECT_LT(at(detailed, 75, 63).red(), at(plain, 75, 63).red());     // shadow
    EXPECT_GT(at(detailed, 50, 64).blue(), at(plain, 50, 64).blue());   // line of light
    EXPECT_EQ(at(detailed, 4, 50).alpha(), 0);
}

}  // namespace
}  // namespace morvane
