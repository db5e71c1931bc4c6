// Presses that nobody would make.

#include <random>

#include "system/screen_disk.h"

namespace morvane::test {
namespace {

class ScreenFuzz : public OnScreen {
protected:
    template <class List>
    const auto& oneOf(const List& list) {
        return list[random_() % list.size()];
    }
    // A control of some screen, or keys and a screen that hardly go together.
    Json randomControl() {
        static const std::vector<std::vector<std::string>> controls{
            {"shell", "menus.items"},
            {"sidebar", "sections.rows"},
            {"sidebar", "settings"},
            {"overview", "disk.note.button"},
            {"overview", "card.button"},
            {"overview", "card.scanAgain"},
            {"overview", "card.review"},
            {"overview", "card.cards"},
            {"overview", "card.openTrash"},
            {"sweepReview", "preset"},
            {"sweepReview", "groups.state"},
            {"sweepReview", "groups.rows.state"},
            {"sweepReview", "groups.rows.open"},
            {"sweepReview", "groups.rows.panel.reveal"},
            {"sweepReview", "footer.actions"},
            {"settings", "sweeping.schedule"},
            {"settings", "sweeping.remind"},
            {"settings", "sweeping.menuBar"},
            {"settings", "sweeping.trash"},
            {"settings", "ignoreList.rows.remove"},
            {"settings", "ignoreList.add"},
            {"settings", "history.rows.restore"},
            {"settings", "updates.check"},
            {"settings", "updates.download"},
            {"settings", "updates.button"}};
        static const std::vector<std::string> screens{
            "shell", "sidebar", "overview", "sweepReview", "settings", "cellar", ""};
        static const std::vector<std::string> keys{
            "menus",   "items",   "sections", "rows",    "settings", "disk",     "note",
            "button",  "card",    "cards",    "review",  "groups",   "state",    "open",
            "panel",   "reveal",  "footer",   "actions", "sweeping", "schedule", "history",
            "restore", "updates", "title",    "label",   "id",       ""};
        const std::vector<std::string>& real = oneOf(controls);
        if (random_() % 4 != 0) return {{"screen", real.at(0)}, {"control", real.at(1)}};
        std::string control = oneOf(keys);
        for (auto more = random_() % 4; more > 0; --more) control += "." + oneOf(keys);
        return {{"screen", oneOf(screens)}, {"control", control}};
    }
    Json randomPress() {
        static const std::vector<Json> rows{0,
                                            1,
                                            -1,
                                            1e18,
                                            0.5,
                                            "0",
                                            "caches",
                                            "logs",
                                            "System Crumbs",
                                            "Downloads",
                                            "crumbs",
                                            "backups",
                                            "largeFiles",
                                            "about",
                                            "scanNow",
                                            "sweep",
                                            "",
                                            "\n",
                                            true,
                                            Json::array(),
                                            Json::object()};
        static const std::vector<Json> values{
            true, false, 0, 1, 2, -1, 1.5, 1e300, "", "text", Json::array(), Json::object()};
        Json press = randomControl();
        if (random_() % 2 == 0) press["row"] = oneOf(rows);
        if (random_() % 3 == 0) press["value"] = oneOf(values);
        if (random_() % 50 == 0) press.erase("control");
        if (random_() % 50 == 0) press["further"] = oneOf(values);
        Json request{{"press", press}};
        if (random_() % 6 == 0) request["wait"] = oneOf(values);
        return request;
    }

private:
    // The same presses in every run.
    std::mt19937 random_{20260615};
};

TEST_F(ScreenFuzz, ThreeThousandPressesAreAnsweredOneByOne) {
    fillDisk();
    driver().call("finishOnboarding");
    int carriedOut = 0;
    for (int number = 0; number < 3000; ++number) {
        // There is always something new to find.
        if (number % 100 == 0) {
            disk.file(caches + "Again " + std::to_string(number) + "/data", 3'000'000);
        }
        const Json request = randomPress();
        const Json answer = driver().ask(request);
        ASSERT_EQ(answer.size(), 1U) << request << answer;
        if (answer.contains("result")) {
            ASSERT_EQ(answer.at("result"), nullptr) << request;
            ++carriedOut;
        } else {
            ASSERT_TRUE(answer.at("error").is_string()) << request << answer;
            ASSERT_NE(answer.at("error"), "") << request;
        }
    }
    driver().waitForAll();
    expectShapes();
    EXPECT_GT(carriedOut, 100);
    EXPECT_TRUE(disk.has("/Users/sam/Library"));
    EXPECT_EQ(endDriver(), 0);
}

}  // namespace
}  // namespace morvane::test
