#include "ui/window/review_layout.h"

#include <gtest/gtest.h>

#include "ui-window/review_groups.h"

namespace morvane::test {
namespace {

double noPanel(const std::string& /*key*/) {
    return 0;
}

TEST(ReviewLayout, OfNothingIsItsPaddingAlone) {
    ReviewLayout layout;
    layout.build({}, noPanel);
    EXPECT_TRUE(layout.entries().empty());
    EXPECT_TRUE(layout.cards().empty());
    EXPECT_EQ(layout.height(), 24);
    EXPECT_EQ(layout.firstBelow(0), 0);
    EXPECT_EQ(layout.placeOf("row:x"), -1);
}

TEST(ReviewLayout, StacksHeadersRowsAndTheSpaceBetweenCards) {
    ReviewLayout layout;
    layout.build({group("A", "a", 2), group("B", "b", 1)}, noPanel);
    ASSERT_EQ(layout.entries().size(), 5U);
    EXPECT_EQ(layout.entries()[0].key, "group:A");
    EXPECT_EQ(layout.entries()[0].top, 4);
    EXPECT_EQ(layout.entries()[0].height, 44);
    EXPECT_EQ(layout.entries()[1].key, "row:a0");
    EXPECT_EQ(layout.entries()[1].top, 48);
    EXPECT_EQ(layout.entries()[2].top, 90);
    EXPECT_EQ(layout.entries()[3].key, "group:B");
    EXPECT_EQ(layout.entries()[3].top, 146);
    EXPECT_EQ(layout.entries()[4].top, 190);
    EXPECT_EQ(layout.cards(), (std::vector<ReviewLayout::Card>{{4, 128}, {146, 86}}));
    EXPECT_EQ(layout.height(), 252);
    EXPECT_EQ(layout.placeOf("row:b0"), 4);
}

TEST(ReviewLayout, MakesRoomForAnOpenPanel) {
    auto groups = std::vector{group("A", "a", 2)};
    openRow(groups[0].rows[0]);
    ReviewLayout layout;
    layout.build(groups, [](const std::string& key) { return key == "row:a0" ? 100.0 : 7.0; });
    EXPECT_EQ(layout.entries()[1].height, 142);
    EXPECT_EQ(layout.entries()[2].top, 190);
    EXPECT_EQ(layout.entries()[2].height, 42);
}

TEST(ReviewLayout, FindsWhatReachesBelowALine) {
    ReviewLayout layout;
    layout.build({group("A", "a", 3)}, noPanel);
    EXPECT_EQ(layout.firstBelow(-100), 0);
    EXPECT_EQ(layout.firstBelow(47.9), 0);
    EXPECT_EQ(layout.firstBelow(48), 1);
    EXPECT_EQ(layout.firstBelow(1000), 4);
}

}  // namespace
}  // namespace morvane::test
