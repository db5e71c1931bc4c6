// What a press may ask for, and how it is refused.

#include <limits>

#include "screens/screen_test.h"

namespace morvane::screens {
namespace {

class PressRules : public ScreenTest {};

TEST_F(PressRules, AnUnknownKeyIsNamed) {
    EXPECT_EQ(refusal("overview", "card.bottom"), "there is no control \"card.bottom\"");
    for (const char* control : {"", ".", "card.", ".card", "card..button", "Card.button",
                                "card.button.label.x", "title.x", "card .button"}) {
        refusal("overview", control);
    }
    EXPECT_EQ(refusal("overview", std::string(100'000, 'a')),
              "there is no control \"" + std::string(80, 'a') + "\"");
}

TEST_F(PressRules, WhatIsNoControlCannotBePressed) {
    EXPECT_EQ(refusal("overview", "title"), "\"title\" is no control");
    EXPECT_EQ(refusal("overview", "card"), "\"card\" is no control");
    EXPECT_EQ(refusal("overview", "card.button.label"), "\"card.button.label\" is no control");
    EXPECT_EQ(refusal("sweepReview", "preset.options", "0"), "\"preset.options\" is no control");
}

TEST_F(PressRules, AControlThatIsNotOnViewCannotBePressed) {
    EXPECT_EQ(refusal("overview", "disk.note.button"),
              "the control \"disk.note.button\" is not on view");
}

TEST_F(PressRules, ARowIsNeededJustWhereAListIsPassed) {
    EXPECT_EQ(refusal("shell", "menus.items"), "the control \"menus.items\" needs a row");
    EXPECT_EQ(refusal("overview", "card.button", "0"),
              "the control \"card.button\" has no row \"0\"");
    EXPECT_EQ(refusal("shell", "menus.items", "none"),
              "there is no row \"none\" at \"menus.items\"");
    EXPECT_EQ(refusal("shell", "menus.items", "Morvane"),
              "there is no row \"Morvane\" at \"menus.items\"");
}

TEST_F(PressRules, AButtonTakesNoValue) {
    EXPECT_EQ(refusal("overview", "card.button", {}, true), "no value is taken at \"card.button\"");
    EXPECT_EQ(refusal("overview", "card.button", {}, std::int64_t{0}),
              "no value is taken at \"card.button\"");
    EXPECT_EQ(refusal("shell", "menus.items", "about", "now"),
              "no value is taken at \"menus.items\"");
    EXPECT_THAT(windows.opened, IsEmpty());
}

TEST_F(PressRules, ASwitchTakesABooleanAlone) {
    EXPECT_EQ(refusal("settings", "sweeping.trash"),
              "the value is not a boolean at \"sweeping.trash\"");
    refusal("settings", "sweeping.trash", {}, std::int64_t{0});
    refusal("settings", "sweeping.trash", {}, "false");
    EXPECT_TRUE(*state->alwaysUseTrash);
}

TEST_F(PressRules, AChoiceTakesThePlaceOfAnOptionAlone) {
    EXPECT_EQ(refusal("settings", "sweeping.schedule"),
              "the value is not the number of an option at \"sweeping.schedule\"");
    refusal("settings", "sweeping.schedule", {}, true);
    refusal("settings", "sweeping.schedule", {}, "Weekly");
    EXPECT_EQ(refusal("settings", "sweeping.schedule", {}, std::int64_t{3}),
              "there is no option 3 at \"sweeping.schedule\"");
    EXPECT_EQ(refusal("settings", "sweeping.schedule", {}, std::int64_t{-1}),
              "there is no option -1 at \"sweeping.schedule\"");
    refusal("settings", "sweeping.schedule", {}, std::numeric_limits<std::int64_t>::max());
    refusal("settings", "sweeping.schedule", {}, std::numeric_limits<std::int64_t>::min());
    refusal("sweepReview", "preset", {}, std::int64_t{3});
    EXPECT_EQ(*state->schedule, ScanSchedule::weekly);
}

TEST_F(PressRules, ARowOfSeveralListsIsFoundInAnyOfThem) {
    state->crumbItems = {trashItem("one", Safety::safe, 1)};
    state->backupItems = {trashItem("two", Safety::review, 1)};
    press("sweepReview", "groups.rows.open", "two");
    EXPECT_THAT(*state->expandedSweepItems, ElementsAre("two"));
    press("shell", "menus.items", "review");
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
}

TEST_F(PressRules, ANameIsFoundWholeWhateverIsInIt) {
    const std::string odd = "leftover:a.b\n\"c\" <b> ✓ %25";
    state->crumbItems = {trashItem(odd, Safety::safe, 1)};
    press("sweepReview", "groups.rows.open", odd);
    EXPECT_THAT(*state->expandedSweepItems, ElementsAre(odd));
    refusal("sweepReview", "groups.rows.open", odd.substr(0, 10));
}

TEST_F(PressRules, KeysAreTakenApartAtTheirDots) {
    EXPECT_THAT(keysOf("groups.rows.open"), ElementsAre("groups", "rows", "open"));
    EXPECT_THAT(keysOf("settings"), ElementsAre("settings"));
    EXPECT_THAT(keysOf(""), ElementsAre(""));
    EXPECT_THAT(keysOf("a."), ElementsAre("a", ""));
}

}  // namespace
}  // namespace morvane::screens
