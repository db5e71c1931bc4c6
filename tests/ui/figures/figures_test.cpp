// The figures of every screen, held against the live scene.

#include <algorithm>
#include <set>

#include "ui/figures/figure_screens.h"

namespace morvane {
namespace {

class Figures : public FigureScreens, public testing::WithParamInterface<std::string> {};

TEST_P(Figures, HoldInTheLiveSceneInBothAppearances) {
    const QString screen = QString::fromStdString(GetParam());
    enter(screen);
    for (const bool dark : {false, true}) {
        theme().setDark(dark);
        turn();
        for (const Figure& figure : figures()) {
            if (figure.screen == screen) EXPECT_EQ(complaint(figure), "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Figures, testing::ValuesIn(figureScreens()), [](const auto& screen) {
    std::string name = screen.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

TEST(TableOfFigures, SaysOneThingALineAndNothingTwice) {
    EXPECT_GE(figures().size(), 800U);
    std::set<QString> said;
    for (const Figure& figure : figures()) {
        SCOPED_TRACE(figure.line);
        EXPECT_NE(figure.screen, QString());
        EXPECT_EQ(figure.isColor(), !figure.light.isEmpty());
        EXPECT_EQ(figure.light.isEmpty(), figure.dark.isEmpty());
        EXPECT_TRUE(
            said.insert(figure.screen + u' ' + figure.control + u' ' + figure.property).second);
    }
}

}  // namespace
}  // namespace morvane
