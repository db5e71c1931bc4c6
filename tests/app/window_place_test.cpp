#include "app/window_place.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

const QRect left(0, 25, 1440, 876);
const QRect right(1440, 0, 1920, 1080);

TEST(WindowPlace, IsReadAsItWasWritten) {
    const QRect place(-120, 40, 1100, 720);
    EXPECT_EQ(windowPlaceText(place), "-120 40 1100 720");
    EXPECT_EQ(readWindowPlace("-120 40 1100 720"), place);
}

TEST(WindowPlace, OfAnyOtherFormIsNone) {
    for (const std::string_view text : {"",
                                        " ",
                                        "1",
                                        "1 2 3",
                                        "1 2 300 400 ",
                                        " 1 2 300 400",
                                        "1  2 300 400",
                                        "1 2 300 400 5",
                                        "1,2,300,400",
                                        "1.5 2 300 400",
                                        "a b c d",
                                        "1 2 300 4x0",
                                        "+1 2 300 400",
                                        "1 2 0 400",
                                        "1 2 300 -400",
                                        "1 2 3 4",
                                        "99999999999999999999 2 300 400",
                                        "2147483647 2 300 400",
                                        "1 2 2147483647 400",
                                        "-2147483648 0 300 300",
                                        "0x1 2 300 400",
                                        "1\n2\n300\n400",
                                        "{{1, 2}, {300, 400}}",
                                        "nan nan nan nan"}) {
        EXPECT_EQ(readWindowPlace(text), std::nullopt) << text;
    }
    EXPECT_EQ(readWindowPlace(std::string("1 2 300 400\0", 12)), std::nullopt);
    EXPECT_EQ(readWindowPlace(std::string(1'000'000, '1')), std::nullopt);
}

TEST(WindowPlace, ThatIsKeptCountsOnAnyScreen) {
    const QRect place(1600, 100, 1200, 800);
    EXPECT_EQ(windowPlace(place, {left, right}), place);
}

TEST(WindowPlace, OffEveryScreenIsInTheMiddleOfTheFirst) {
    const QRect middle(170, 103, 1100, 720);
    for (const QRect& kept :
         {QRect(1600, 100, 1200, 800), QRect(-1100, 100, 1100, 720), QRect(100, -700, 1100, 720),
          QRect(100, 890, 1100, 720), QRect(-32'000, -32'000, 1100, 720)}) {
        EXPECT_EQ(windowPlace(kept, {left}), middle);
    }
    EXPECT_EQ(windowPlace(std::nullopt, {left}), middle);
}

TEST(WindowPlace, PartlyOffTheScreenStaysWhileItCanBeTakenHoldOf) {
    EXPECT_EQ(windowPlace(QRect(-900, 30, 1100, 720), {left}), QRect(-900, 30, 1100, 720));
    EXPECT_EQ(windowPlace(QRect(1300, 800, 1100, 720), {left}), QRect(1300, 800, 1100, 720));
    EXPECT_EQ(windowPlace(QRect(1330, 800, 1100, 720), {left}), QRect(170, 103, 1100, 720));
}

TEST(WindowPlace, IsNoLargerThanItsScreen) {
    EXPECT_EQ(windowPlace(QRect(10, 30, 30'000, 30'000), {left}), QRect(10, 30, 1440, 876));
    EXPECT_EQ(windowPlace(std::nullopt, {QRect(0, 0, 800, 600)}), QRect(0, 0, 800, 600));
    EXPECT_EQ(windowPlace(std::nullopt, {}), QRect(0, 0, 1100, 720));
}

}  // namespace
}  // namespace morvane
