#include "faults/new_start.h"

#include <gtest/gtest.h>

namespace morvane::test {

std::set<std::string> scanFor(DriverClient& driver) {
    driver.call("startScan", {{"showOverview", true}});
    std::set<std::string> paths;
    for (const Json& item : driver.get("sweepItems")) {
        for (const Json& part : item.at("action").at("trash")) paths.insert(part.at("url"));
    }
    return paths;
}

void sweepFound(DriverClient& driver) {
    Json ids = Json::array();
    for (const Json& item : driver.get("sweepItems")) ids.push_back(item.at("id"));
    driver.call("sweep", {{"items", ids}});
}

std::set<std::string> restoreAll(DriverClient& driver) {
    std::set<std::string> paths;
    const Json states = driver.get("historyStates");
    for (const Json& entry : driver.get("history")) {
        for (const auto& [original, inTrash] : entry.at("trashed").items()) paths.insert(original);
        const std::string id = entry.at("id");
        if (states.at(id) == "restorable") driver.call("restore", {{"entry", id}});
    }
    EXPECT_EQ(driver.get("restoreProblem"), Json::object());
    return paths;
}

void expectNewStartWorks(PlannedDisk& planned, const Json& settings, bool isRecorded) {
    std::set<std::string> everything;
    for (const PlannedItem& item : planned.items()) everything.insert(item.path);

    DriverClient driver(planned.disk.folder());
    for (const auto& [field, value] : settings.items()) EXPECT_EQ(driver.get(field), value);
    restoreAll(driver);
    planned.expectOldPlaceOrTrash();
    const std::set<std::string> standing = planned.itemsAt(Whereabouts::oldPlace);
    if (isRecorded) {
        EXPECT_EQ(standing, everything);
    }
    EXPECT_EQ(scanFor(driver), standing);
    sweepFound(driver);
    EXPECT_EQ(driver.get("sweepProblem"), nullptr);
    EXPECT_EQ(planned.itemsAt(Whereabouts::trash), everything);
    restoreAll(driver);
    // What a killed driver had moved and not yet recorded stays in the Trash.
    EXPECT_EQ(planned.itemsAt(Whereabouts::oldPlace), standing);
    planned.expectOldPlaceOrTrash();
}

}  // namespace morvane::test
