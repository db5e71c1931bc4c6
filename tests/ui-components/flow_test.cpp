#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "stage.h"
#include "ui/components/flow_plan.h"

namespace morvane {
namespace {

using testing::ElementsAre;
using Items = std::vector<FlowSize>;

TEST(FlowPlan, HasOneEmptyRowAndNoSizeWithoutItems) {
    const FlowPlan plan = flowPlan({}, 100, 20, 6);
    EXPECT_THAT(plan.rows, ElementsAre(FlowRow{{}, 0, 0}));
    EXPECT_TRUE(plan.places.empty());
    EXPECT_EQ(plan.size, (FlowSize{0, 0}));
}

TEST(FlowPlan, KeepsARowThatFillsItsWidthExactly) {
    const Items items{{40, 10}, {40, 10}};
    EXPECT_THAT(flowRows(items, 100, 20), ElementsAre(FlowRow{{0, 1}, 100, 10}));
    EXPECT_THAT(flowRows(items, 99.5, 20), ElementsAre(FlowRow{{0}, 40, 10}, FlowRow{{1}, 40, 10}));
}

TEST(FlowPlan, LeavesAnItemWiderThanARowAloneOnItsRow) {
    const Items items{{30, 10}, {300, 12}, {30, 10}};
    const FlowPlan plan = flowPlan(items, 100, 20, 6);
    EXPECT_THAT(plan.rows,
                ElementsAre(FlowRow{{0}, 30, 10}, FlowRow{{1}, 300, 12}, FlowRow{{2}, 30, 10}));
    EXPECT_EQ(plan.size, (FlowSize{300, 44}));
}

TEST(FlowPlan, NeverMovesAFirstItem) {
    EXPECT_THAT(flowRows(Items{{300, 10}}, 100, 20), ElementsAre(FlowRow{{0}, 300, 10}));
    EXPECT_THAT(flowRows(Items{{300, 10}}, 0, 20), ElementsAre(FlowRow{{0}, 300, 10}));
}

TEST(FlowPlan, PlacesItemsUprightInTheMiddleOfTheirRow) {
    const Items items{{40, 10}, {20, 30}, {60, 8}};
    const FlowPlan plan = flowPlan(items, 100, 20, 6);
    EXPECT_THAT(plan.places, ElementsAre(FlowPlace{0, 10}, FlowPlace{60, 0}, FlowPlace{0, 36}));
    EXPECT_EQ(plan.size, (FlowSize{80, 44}));
}

TEST(FlowPlan, PutsEverythingInOneRowWithoutABound) {
    const Items items{{40, 10}, {20, 30}, {600, 8}};
    const FlowPlan plan = flowPlan(items, std::numeric_limits<double>::infinity(), 20, 6);
    EXPECT_THAT(plan.rows, ElementsAre(FlowRow{{0, 1, 2}, 700, 30}));
    EXPECT_EQ(plan.size, (FlowSize{700, 30}));
}

TEST(FlowLayoutItem, PlacesWhatARepeaterMakesAndLeavesHiddenOnesOut) {
    Stage stage;
    const QQuickItem* const root = stage.show(QStringLiteral(R"(Item { width: 600; height: 400
        FlowLayout { objectName: "flow"; width: 100; spacing: 20; lineSpacing: 6
            Repeater { model: 3; Rectangle { width: 40; height: 10; objectName: "r" + index } }
            Rectangle { width: 10; height: 10; visible: false }
            Rectangle { objectName: "last"; width: 10; height: 30 } } })"));
    ASSERT_NE(root, nullptr);
    const QQuickItem* const flow = stage.item(QStringLiteral("flow"));
    stage.picture();
    EXPECT_EQ(flow->implicitWidth(), 190);
    EXPECT_EQ(flow->implicitHeight(), 46);
    EXPECT_EQ(stage.item(QStringLiteral("r1"))->position(), QPointF(60, 0));
    EXPECT_EQ(stage.item(QStringLiteral("r2"))->position(), QPointF(0, 26));
    EXPECT_EQ(stage.item(QStringLiteral("last"))->position(), QPointF(60, 16));

    stage.item(QStringLiteral("flow"))->setWidth(300);
    EXPECT_EQ(flow->implicitHeight(), 30);
    stage.item(QStringLiteral("last"))->setVisible(false);
    stage.picture();
    EXPECT_EQ(flow->implicitHeight(), 10);
}

TEST(FlowLayoutItem, HasNoSizeWithoutItemsAndCutsNoneThatIsTooWide) {
    Stage stage;
    const QQuickItem* const root = stage.show(QStringLiteral(R"(Item { width: 600; height: 400
        FlowLayout { objectName: "none"; width: 100; spacing: 20; lineSpacing: 6 }
        FlowLayout { objectName: "flow"; width: 100; spacing: 20; lineSpacing: 6
            Rectangle { width: 30; height: 10 }
            Rectangle { objectName: "wide"; width: 300; height: 12 } } })"));
    ASSERT_NE(root, nullptr);
    stage.picture();
    EXPECT_EQ(stage.item(QStringLiteral("none"))->implicitWidth(), 0);
    EXPECT_EQ(stage.item(QStringLiteral("none"))->implicitHeight(), 0);
    EXPECT_FALSE(stage.item(QStringLiteral("flow"))->clip());
    EXPECT_EQ(stage.item(QStringLiteral("flow"))->implicitHeight(), 28);
    EXPECT_EQ(stage.item(QStringLiteral("wide"))->position(), QPointF(0, 16));
    EXPECT_EQ(stage.item(QStringLiteral("wide"))->size(), QSizeF(300, 12));
}

}  // namespace
}  // namespace morvane
