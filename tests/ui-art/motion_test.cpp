#include <gtest/gtest.h>

#include "ui/art/confetti_motion.h"
#include "ui/art/sweeping_motion.h"

namespace morvane {
namespace {

constexpr double close = 1e-9;

TEST(PhaseOf, RunsFromNothingToBelowOneAndAgain) {
    EXPECT_DOUBLE_EQ(phaseOf(0, 0, 2.6), 0);
    EXPECT_DOUBLE_EQ(phaseOf(1.3, 0, 2.6), 0.5);
    EXPECT_DOUBLE_EQ(phaseOf(2.6, 0, 2.6), 0);
    EXPECT_NEAR(phaseOf(3.9, 0, 2.6), 0.5, close);
}

TEST(PhaseOf, CountsOnBackwardsBeforeTheClocksZero) {
    EXPECT_DOUBLE_EQ(phaseOf(0, 0.65, 2.6), 0.75);
    EXPECT_NEAR(phaseOf(-2.6 * 3 - 0.65, 0, 2.6), 0.75, close);
}

TEST(Crumb, StartsUnseenWhereItLies) {
    const PieceAt at = crumbAt(0, 0);
    EXPECT_DOUBLE_EQ(at.x, 16);
    EXPECT_DOUBLE_EQ(at.y, 96);
    EXPECT_DOUBLE_EQ(at.opacity, 0);
    EXPECT_DOUBLE_EQ(at.scale, 1);
}

TEST(Crumb, IsHalfWayInTheMiddleOfItsPeriod) {
    const PieceAt at = crumbAt(0, 1.3);
    EXPECT_NEAR(at.x, 76, close);
    EXPECT_NEAR(at.y, 121, close);
    EXPECT_DOUBLE_EQ(at.opacity, 1);
    EXPECT_DOUBLE_EQ(at.scale, 1);
}

TEST(Crumb, FadesInOverTheFirstPartOfItsWay) {
    EXPECT_NEAR(crumbAt(0, 0.195).opacity, 0.5, close);
    EXPECT_NEAR(crumbAt(0, 0.26).x, 16.48, close);
}

TEST(Crumb, ShrinksAndFadesAtTheMouthOfThePan) {
    const PieceAt at = crumbAt(0, 2.275);  // seven eighths of its period
    EXPECT_NEAR(at.x, 136 - 120 * 0.0078125, close);
    EXPECT_NEAR(at.y, 146 - 50 * 0.0078125, close);
    EXPECT_NEAR(at.opacity, 0.5, close);
    EXPECT_NEAR(at.scale, 1 - 0.65 * 0.5 * 0.9921875, close);
}

TEST(Crumb, FollowsTheOneBeforeItByAThirdOfASecond) {
    const PieceAt third = crumbAt(2, 0.66 + 1.3);
    EXPECT_NEAR(third.x, 88, close);
    EXPECT_NEAR(third.y, 161, close);
}

TEST(Pan, RocksBetweenLevelAndSixDegreesOncePerPeriod) {
    EXPECT_DOUBLE_EQ(panAngle(0), 0);
    EXPECT_NEAR(panAngle(0.65), -3, close);
    EXPECT_DOUBLE_EQ(panAngle(1.3), -6);
    EXPECT_NEAR(panAngle(2.6), 0, close);
}

TEST(Confetti, StartsSmallAndUnseenInTheCentre) {
    const PieceAt at = confettiAt(0, 0, 300, 200);
    EXPECT_DOUBLE_EQ(at.x, 300);
    EXPECT_DOUBLE_EQ(at.y, 200);
    EXPECT_DOUBLE_EQ(at.opacity, 0);
    EXPECT_DOUBLE_EQ(at.scale, 0.4);
}

TEST(Confetti, IsSevenEighthsOutInTheMiddleOfItsPeriod) {
    const PieceAt at = confettiAt(0, 1.6, 300, 200);
    EXPECT_NEAR(at.x, 300 + 150.46549703728294, 1e-6);
    EXPECT_NEAR(at.y, 200 - 35 + 31.029621699440654, 1e-6);
    EXPECT_NEAR(at.opacity, 1 - 0.35 / 0.85, close);
    EXPECT_NEAR(at.scale, 0.925, close);
}

TEST(Confetti, ReachesFartherForEachKindAndFollowsInTurn) {
    const PieceAt at = confettiAt(3, 0.36 + 1.6, 0, 0);  // kind 3: 240 out
    EXPECT_NEAR(at.x, 69.84817505267355, 1e-6);
    EXPECT_NEAR(at.y, 169.77221213589294, 1e-6);
}

TEST(Confetti, HasSquaresWithSoftCornersAndDiscsOfThreeSizes) {
    EXPECT_DOUBLE_EQ(confettiHalf(0), 3);
    EXPECT_DOUBLE_EQ(confettiHalf(4), 4.5);
    EXPECT_DOUBLE_EQ(confettiHalf(17), 6);
    EXPECT_DOUBLE_EQ(confettiRadius(4), 2);
    EXPECT_DOUBLE_EQ(confettiRadius(5), 6);
}

}  // namespace
}  // namespace morvane
