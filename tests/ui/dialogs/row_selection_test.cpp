#include "ui/dialogs/row_selection.h"

#include <gmock/gmock.h>

namespace morvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using How = RowSelection::How;

RowSelection of(int count) {
    RowSelection selection;
    selection.reset(count);
    return selection;
}

TEST(RowSelection, BeginsWithNothingChosenAndTheKeyboardOnTheFirstRow) {
    EXPECT_THAT(of(3).rows(), IsEmpty());
    EXPECT_EQ(of(3).current(), 0);
    EXPECT_EQ(of(0).current(), -1);
}

TEST(RowSelection, AClickChoosesOneRowAlone) {
    RowSelection selection = of(5);
    selection.choose(1, How::alone);
    selection.choose(3, How::alone);
    EXPECT_THAT(selection.rows(), ElementsAre(3));
    EXPECT_EQ(selection.current(), 3);
}

TEST(RowSelection, ControlAddsAndTakesAway) {
    RowSelection selection = of(5);
    selection.choose(1, How::toggled);
    selection.choose(3, How::toggled);
    EXPECT_THAT(selection.rows(), ElementsAre(1, 3));
    selection.choose(1, How::toggled);
    EXPECT_THAT(selection.rows(), ElementsAre(3));
}

TEST(RowSelection, ShiftChoosesFromTheLastRowChosenWithoutIt) {
    RowSelection selection = of(9);
    selection.choose(4, How::alone);
    selection.choose(6, How::extended);
    EXPECT_THAT(selection.rows(), ElementsAre(4, 5, 6));
    selection.choose(2, How::extended);
    EXPECT_THAT(selection.rows(), ElementsAre(2, 3, 4));
}

TEST(RowSelection, StepsStayWithinTheList) {
    RowSelection selection = of(3);
    selection.step(1, How::alone);
    EXPECT_THAT(selection.rows(), ElementsAre(0));
    selection.step(100, How::alone);
    EXPECT_THAT(selection.rows(), ElementsAre(2));
    selection.step(-100, How::extended);
    EXPECT_THAT(selection.rows(), ElementsAre(0, 1, 2));
    RowSelection none = of(0);
    none.step(1, How::alone);
    EXPECT_THAT(none.rows(), IsEmpty());
}

TEST(RowSelection, ARowThatIsNotThereChangesNothing) {
    RowSelection selection = of(2);
    selection.choose(1, How::alone);
    selection.choose(2, How::alone);
    selection.choose(-1, How::toggled);
    EXPECT_THAT(selection.rows(), ElementsAre(1));
}

}  // namespace
}  // namespace morvane
