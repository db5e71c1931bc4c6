// The requests about screens, and the sentences for those that are wrong.

#include <gmock/gmock.h>

#include "support/tree_snapshot.h"
#include "system/screen_disk.h"

namespace morvane::test {
namespace {

using testing::HasSubstr;

class ScreenRequests : public OnScreen {
protected:
    void expectError(const Json& request, const std::string& named) {
        EXPECT_THAT(driver().error(request), HasSubstr(named)) << request;
    }
};

TEST_F(ScreenRequests, AnUnknownScreenIsToldWhichThereAre) {
    const std::string known = "shell, sidebar, overview, sweepReview, settings";
    for (const Json& name : {Json("cellar"), Json("Overview"), Json("")}) {
        expectError({{"screen", name}}, known);
        expectError({{"appear", name}}, known);
        expectError({{"press", {{"screen", name}, {"control", "card.button"}}}}, known);
    }
}

TEST_F(ScreenRequests, AreErrorsThatChangeNothingWhereTheyAreWrong) {
    fillDisk();
    press("overview", "card.button");
    driver().effects();
    const Json before = everyScreen();
    const TreeSnapshot tree = takeSnapshot(disk.real(""));
    const Json good{{"screen", "settings"}, {"control", "sweeping.trash"}, {"value", false}};
    const auto with = [&](const char* key, const Json& value) {
        Json press = good;
        press[key] = value;
        return Json{{"press", press}};
    };
    const auto without = [&](const char* key) {
        Json press = good;
        press.erase(key);
        return Json{{"press", press}};
    };
    for (const Json& request : {Json{{"screen", nullptr}},
                                Json{{"screen", 1}},
                                Json{{"screen", {"overview"}}},
                                Json{{"screen", "overview"}, {"wait", true}},
                                Json{{"screen", "overview"}, {"from", 0}},
                                Json{{"screen", "overview"}, {"get", {"scanPhase"}}},
                                Json{{"appear", 1}},
                                Json{{"appear", "settings"}, {"wait", 1}},
                                Json{{"appear", "settings"}, {"row", "a"}},
                                Json{{"becameActive", false}},
                                Json{{"becameActive", nullptr}},
                                Json{{"becameActive", 1}},
                                Json{{"becameActive", true}, {"wait", nullptr}},
                                Json{{"press", nullptr}},
                                Json{{"press", "sweeping.trash"}},
                                Json{{"press", Json::array()}},
                                Json{{"press", Json::object()}},
                                without("screen"),
                                without("control"),
                                without("value"),
                                with("screen", 1),
                                with("control", 1),
                                with("control", nullptr),
                                with("row", "a"),
                                with("row", 0),
                                with("row", 1.5),
                                with("row", true),
                                with("row", {"a"}),
                                with("value", 0),
                                with("value", "false"),
                                with("value", {false}),
                                with("value", Json::object()),
                                with("value", 1.5),
                                with("value", 1e300),
                                with("args", 1),
                                with("wait", true),
                                Json{{"press", good}, {"wait", "no"}},
                                Json{{"press", good}, {"args", Json::object()}},
                                pressing("shell", "menus.items", "settings"),
                                pressing("overview", "card.openTrash"),
                                pressing("settings", "sweeping.schedule", nullptr, 3),
                                pressing("settings", "sweeping.schedule", nullptr, -1),
                                pressing("settings", "sweeping.schedule", nullptr, 0.5),
                                pressing("settings", "updates.download", nullptr, true),
                                pressing("settings", "history.rows.restore", "nobody"),
                                pressing("sweepReview", "footer.actions"),
                                pressing("sweepReview", "footer.actions", 1),
                                pressing("sweepReview", "footer.actions", -1),
                                pressing("sweepReview", "footer.actions", 0, true),
                                pressing("sweepReview", "groups.rows.panel.reveal", "caches")}) {
        EXPECT_NE(driver().error(request), "") << request;
    }
    EXPECT_EQ(everyScreen(), before);
    EXPECT_EQ(driver().effects(), Json::array());
    EXPECT_EQ(driver().get("tasks"), Json::array());
    EXPECT_EQ(differences(tree, takeSnapshot(disk.real(""))), "");
}

TEST_F(ScreenRequests, ARowThatGoesByItsPlaceMayBeANumberOrAText) {
    for (const Json& place : {Json(0), Json("0")}) {
        disk.file(caches + "Acme/data", 3'000'000);
        scan();
        press("sweepReview", "footer.actions", place);
        EXPECT_EQ(card().at("kind"), "success");
        EXPECT_FALSE(disk.has(caches + "Acme"));
    }
}

TEST_F(ScreenRequests, AChoiceTakesAWholeNumberHoweverItIsSpelt) {
    EXPECT_EQ(driver().askLine(R"({"press":{"screen":"settings",)"
                               R"("control":"sweeping.schedule","value":2.0}})"),
              Json({{"result", nullptr}}));
    EXPECT_EQ(driver().get("schedule"), "monthly");
}

TEST_F(ScreenRequests, ANullRowOrValueIsNone) {
    driver().call("finishOnboarding");
    EXPECT_EQ(driver().result({{"press",
                                {{"screen", "sidebar"},
                                 {"control", "settings"},
                                 {"row", nullptr},
                                 {"value", nullptr}}}}),
              nullptr);
    EXPECT_EQ(driver().get("selection"), "settings");
}

TEST_F(ScreenRequests, ReadingChangesNothing) {
    fillDisk();
    press("overview", "card.button");
    driver().effects();
    const TreeSnapshot tree = takeSnapshot(disk.real(""));
    const Json first = everyScreen();
    EXPECT_EQ(everyScreen(), first);
    EXPECT_EQ(driver().effects(), Json::array());
    EXPECT_EQ(driver().get("tasks"), Json::array());
    EXPECT_EQ(differences(tree, takeSnapshot(disk.real(""))), "");
}

TEST_F(ScreenRequests, TheShapesAreTheAgreedOnesThroughAWholeSession) {
    fillDisk();
    holdScans();
    disk.host["notifications"] = "denied";
    disk.host["fullDiskAccess"] = "denied";
    expectShapes();
    driver().call("finishOnboarding");
    beginPress("overview", "card.button");
    const int gate = disk.waitAtGate("gate");
    EXPECT_EQ(card().at("kind"), "scanning");
    expectShapes();
    TestDisk::open(gate);
    driver().waitForAll();
    EXPECT_EQ(card().at("kind"), "done");
    press("sweepReview", "groups.rows.open", "caches");
    expectShapes();
    press("sweepReview", "footer.actions", 0);
    appear("shell");
    appear("settings");
    EXPECT_NE(screen("settings").at("sweeping").at("notificationsOff"), nullptr);
    EXPECT_NE(screen("overview").at("disk").at("note"), nullptr);
    EXPECT_EQ(card().at("kind"), "success");
    expectShapes();
    press("overview", "card.button");
    expectShapes();
}

}  // namespace
}  // namespace morvane::test
