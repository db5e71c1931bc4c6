#include "ui/theme/spring.h"

#include <QCoreApplication>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

#include "frames.h"
#include "stage.h"

namespace morvane {
namespace {

void expectState(SpringState state, double value, double velocity) {
    EXPECT_NEAR(state.value, value, 1e-7);
    EXPECT_NEAR(state.velocity, velocity, 1e-6);
}

// The literals were integrated numerically from the equation of motion.
TEST(SpringValue, SwingsBelowCriticalDamping) {
    expectState(springValue(0.15, 0.85, 0, 0, 100, 0.05), 68.116599300, 1196.778528444);
    expectState(springValue(0.15, 0.85, 0, 0, 100, 0.1), 97.997498173, 181.864028892);
    expectState(springValue(0.5, 0.3, 0, 0, 1, 0.3), 1.334503629, -1.867004162);
}

TEST(SpringValue, ComesToRestWithoutPassingTheTargetWhenCriticallyDamped) {
    expectState(springValue(0.5, 1, 0, 0, 1, 0.1), 0.357739556, 4.494373762);
    expectState(springValue(0.5, 1, 0, 0, 1, 0.25), 0.821025554, 1.706017112);
    for (int step = 0; step < 400; ++step) {
        EXPECT_LE(springValue(0.5, 1, 0, 0, 1, step * 0.01).value, 1.0);
    }
}

TEST(SpringValue, CreepsAboveCriticalDamping) {
    expectState(springValue(0.4, 1.5, 0, 0, 10, 0.1), 3.602303066, 37.403500159);
    expectState(springValue(0.4, 1.5, 0, 50, 10, 0.2), 6.902333582, 18.583034733);
}

TEST(SpringValue, GoesOnWithTheSpeedItHad) {
    expectState(springValue(0.5, 1, 2, -3, 1, 0.2), 1.235982756, -2.190545948);
    expectState(springValue(0.2, 0.85, 40, 300, 0, 0.03), 33.460121564, -495.103694884);
}

TEST(SpringValue, StandsAtItsStartAtTimeZero) {
    EXPECT_EQ(springValue(0.5, 1, 2, -3, 1, 0), (SpringState{2, -3}));
    EXPECT_EQ(springValue(0.5, 1, 2, -3, 1, -1), (SpringState{2, -3}));
}

TEST(SpringValue, IsAtRestAtOnceWithoutAResponse) {
    EXPECT_EQ(springValue(0, 1, 2, -3, 1, 0.1), (SpringState{1, 0}));
    EXPECT_EQ(springValue(-1, 1, 2, -3, 1, 0), (SpringState{1, 0}));
}

TEST(SpringValue, HasNoStepWhereTheClosedFormsMeet) {
    const SpringState critical = springValue(0.5, 1, 0, 2, 1, 0.2);
    EXPECT_NEAR(springValue(0.5, 0.9999, 0, 2, 1, 0.2).value, critical.value, 1e-3);
    EXPECT_NEAR(springValue(0.5, 1.0001, 0, 2, 1, 0.2).value, critical.value, 1e-3);
}

class SpringItem : public testing::Test {
protected:
    SpringItem() {
        root_ = stage_.show(QStringLiteral(
            "Item { Spring { objectName: 's'; target: 10; response: 0.5; dampingFraction: 1 } }"));
        spring_ = root_ == nullptr ? nullptr : root_->findChild<Spring*>();
    }

    Frames frames_;
    Stage stage_;
    QQuickItem* root_ = nullptr;
    Spring* spring_ = nullptr;
};

TEST_F(SpringItem, StandsAtItsFirstTargetWithoutMoving) {
    ASSERT_NE(spring_, nullptr);
    EXPECT_EQ(spring_->value(), 10);
    EXPECT_FALSE(spring_->running());
    EXPECT_FALSE(frames_.isRunning());
}

TEST_F(SpringItem, FollowsItsTargetAndAsksForNoFrameOnceThere) {
    ASSERT_NE(spring_, nullptr);
    spring_->setTarget(110);
    EXPECT_TRUE(spring_->running());
    frames_.pass(0);
    EXPECT_TRUE(frames_.isRunning());
    frames_.pass(100);
    EXPECT_NEAR(spring_->value(), 45.7739556, 1e-6);
    frames_.pass(150);
    EXPECT_NEAR(spring_->value(), 92.1025554, 1e-6);
    frames_.pass(5000);
    EXPECT_EQ(spring_->value(), 110);
    EXPECT_FALSE(spring_->running());
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    EXPECT_FALSE(frames_.isRunning());
}

TEST_F(SpringItem, GoesOnFromWhereItStandsWithItsSpeedWhenTurnedAround) {
    ASSERT_NE(spring_, nullptr);
    spring_->setTarget(110);
    frames_.pass(0);
    frames_.pass(100);
    const double before = spring_->value();
    spring_->setTarget(10);
    EXPECT_EQ(spring_->value(), before);
    frames_.pass(0);
    frames_.pass(10);
    EXPECT_GT(spring_->value(), before);  // it still swings outwards
    frames_.pass(5000);
    EXPECT_EQ(spring_->value(), 10);
}

TEST_F(SpringItem, JumpsWhereMotionIsReduced) {
    ASSERT_NE(spring_, nullptr);
    stage_.theme().setReducedMotion(true);
    spring_->setTarget(110);
    EXPECT_EQ(spring_->value(), 110);
    EXPECT_FALSE(spring_->running());
}

TEST_F(SpringItem, EndsItsMotionAtTheNextFrameWhenMotionBecomesReduced) {
    ASSERT_NE(spring_, nullptr);
    spring_->setTarget(110);
    frames_.pass(0);
    stage_.theme().setReducedMotion(true);
    frames_.pass(16);
    EXPECT_EQ(spring_->value(), 110);
    EXPECT_FALSE(spring_->running());
}

TEST_F(SpringItem, JumpsWhileItIsNotEnabled) {
    ASSERT_NE(spring_, nullptr);
    spring_->setTarget(110);
    frames_.pass(0);
    frames_.pass(16);
    spring_->setEnabled(false);
    EXPECT_EQ(spring_->value(), 110);
    spring_->setTarget(0);
    EXPECT_EQ(spring_->value(), 0);
}

TEST_F(SpringItem, IgnoresATargetThatIsNoNumber) {
    ASSERT_NE(spring_, nullptr);
    spring_->setTarget(std::nan(""));
    EXPECT_EQ(spring_->target(), 10);
    EXPECT_EQ(spring_->value(), 10);
}

}  // namespace
}  // namespace morvane
