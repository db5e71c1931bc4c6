// What can be read and written, by name.

#include "system/system_test.h"

namespace morvane::test {
namespace {

using Fields = SystemTest;

TEST_F(Fields, AllStandAtTheirBeginningsInAFreshProgram) {
    disk.host["fullDiskAccess"] = "denied";
    const Json blankDisk = {
        {"volumeName", "Macintosh HD"}, {"totalBytes", 0},        {"freeBytes", 0},
        {"purgeableBytes", 0},          {"systemBytes", nullptr}, {"measured", Json::object()},
        {"skipped", Json::array()},     {"isComplete", false}};
    const Json root = {{"name", "Macintosh HD"},
                       {"url", "/"},
                       {"kind", "folder"},
                       {"bytes", 0},
                       {"children", Json::array()}};
    const Json list = Json::array();
    const Json object = Json::object();
    const Json expected{{"hasOnboarded", false},
                        {"onboardingStep", "welcome"},
                        {"fullDiskAccess", "denied"},
                        {"notificationStatus", "notDetermined"},
                        {"selection", "overview"},
                        {"scanPhase", "idle"},
                        {"finishedCategories", list},
                        {"scanLocation", ""},
                        {"scannedAt", nullptr},
                        {"freedMB", 0.0},
                        {"lastSweptAt", nullptr},
                        {"disk", blankDisk},
                        {"crumbItems", list},
                        {"downloadItems", list},
                        {"leftoverItems", list},
                        {"backupItems", list},
                        {"sweepSelection", list},
                        {"expandedSweepItems", list},
                        {"isSweeping", false},
                        {"sweepProblem", nullptr},
                        {"devSections", nullptr},
                        {"devSelection", list},
                        {"isScanningDeveloper", false},
                        {"apps", list},
                        {"isScanningApps", false},
                        {"selectedAppID", nullptr},
                        {"appQuery", ""},
                        {"appSort", "size"},
                        {"excludedAppParts", list},
                        {"isUninstalling", false},
                        {"uninstallResult", nullptr},
                        {"appsScannedAt", nullptr},
                        {"storagePath", list},
                        {"storageHover", nullptr},
                        {"storageFolders", list},
                        {"storageSystemBytes", nullptr},
                        {"isScanningStorage", false},
                        {"storageSkippedProtected", false},
                        {"storageScannedAt", nullptr},
                        {"files", list},
                        {"isScanningFiles", false},
                        {"fileSelection", list},
                        {"focusedFileID", nullptr},
                        {"quickLookURL", nullptr},
                        {"isTrashingFiles", false},
                        {"fileResult", nullptr},
                        {"filesScannedAt", nullptr},
                        {"fileMinMB", 500.0},
                        {"fileMinMonths", 0},
                        {"fileKind", nullptr},
                        {"schedule", "weekly"},
                        {"remindWhenReady", true},
                        {"showInMenuBar", true},
                        {"alwaysUseTrash", true},
                        {"lastScanAt", nullptr},
                        {"remindedAt", nullptr},
                        {"ignoredFolders", list},
                        {"history", list},
                        {"restoreProblem", object},
                        {"menuBarPhase", "idle"},
                        {"menuBarSweptMB", 0.0},
                        {"menuBarTrashed", object},
                        {"foundSoFarMB", 0.0},
                        {"lastSweptWords", "Not swept yet"},
                        {"sweepItems", list},
                        {"devItems", list},
                        {"sweepGroups", list},
                        {"safeSelection", list},
                        {"safeMB", 0.0},
                        {"selectedSweepItems", list},
                        {"selectedDevItems", list},
                        {"activePreset", "nothing"},
                        {"slices", list},
                        {"visibleApps", list},
                        {"storageRoot", root},
                        {"storageChain", Json::array({root})},
                        {"filteredFiles", list},
                        {"selectedFiles", list},
                        {"categoryMB",
                         {{"crumbs", 0.0},
                          {"developer", 0.0},
                          {"leftovers", 0.0},
                          {"largeFiles", 0.0},
                          {"backups", 0.0}}},
                        {"historyStates", object},
                        {"tasks", list}};
    Json names = Json::array();
    for (const auto& [name, value] : expected.items()) names.push_back(name);
    EXPECT_EQ(driver().ask({{"get", names}}), expected);
    for (const auto& [name, value] : expected.items()) EXPECT_EQ(driver().get(name), value) << name;
}

TEST_F(Fields, HandlesOfTasksAreNoValues) {
    for (const std::string handle :
         {"scanTask", "locationTask", "diskTask", "appScanTask", "storageTask", "fileScanTask",
          "autoScanTask", "accessWatchTask"}) {
        driver().error({{"get", {handle}}});
    }
}

TEST_F(Fields, TakeWhatTheScreensWrite) {
    const Json written{{"selection", "large"},
                       {"schedule", "monthly"},
                       {"remindWhenReady", false},
                       {"showInMenuBar", false},
                       {"alwaysUseTrash", false},
                       {"onboardingStep", "notifications"},
                       {"sweepSelection", {"a", "b"}},
                       {"devSelection", {"c"}},
                       {"fileMinMB", 120.5},
                       {"fileMinMonths", 6},
                       {"fileKind", "diskImage"},
                       {"fileSelection", {"/not/there"}},
                       {"focusedFileID", "/not/there"},
                       {"quickLookURL", "/Users/sam/a"},
                       {"excludedAppParts", {"/x"}},
                       {"selectedAppID", "/Applications/None.app"},
                       {"appQuery", " Query "},
                       {"appSort", "leastUsed"},
                       {"storagePath", {"Users", "sam"}},
                       {"storageHover", "Users"}};
    driver().set(written);
    for (const auto& [name, value] : written.items()) EXPECT_EQ(driver().get(name), value) << name;
    const Json cleared{{"selection", nullptr},        {"fileKind", nullptr},
                       {"focusedFileID", nullptr},    {"quickLookURL", nullptr},
                       {"selectedAppID", nullptr},    {"storageHover", nullptr},
                       {"storagePath", Json::array()}};
    driver().set(cleared);
    for (const auto& [name, value] : cleared.items()) EXPECT_EQ(driver().get(name), value) << name;
    driver().set(Json::object());
}

TEST_F(Fields, AreSetsWithoutRepeatsInOrder) {
    driver().set({{"sweepSelection", {"b", "é", "a", "b", "Z"}}});
    EXPECT_EQ(driver().get("sweepSelection"), Json::array({"Z", "a", "b", "é"}));
}

TEST_F(Fields, RefuseWhatCannotBeAndChangeNothing) {
    const std::vector<std::pair<std::string, Json>> wrong{{"selection", "garden"},
                                                          {"selection", 1},
                                                          {"schedule", "Weekly"},
                                                          {"schedule", nullptr},
                                                          {"remindWhenReady", 1},
                                                          {"remindWhenReady", nullptr},
                                                          {"showInMenuBar", "true"},
                                                          {"alwaysUseTrash", Json::array()},
                                                          {"onboardingStep", "done"},
                                                          {"sweepSelection", "a"},
                                                          {"sweepSelection", {1}},
                                                          {"devSelection", nullptr},
                                                          {"fileMinMB", "1"},
                                                          {"fileMinMB", nullptr},
                                                          {"fileMinMonths", 1.5},
                                                          {"fileMinMonths", "1"},
                                                          {"fileKind", "Disk Images"},
                                                          {"fileSelection", {{"a", 1}}},
                                                          {"focusedFileID", 1},
                                                          {"quickLookURL", "relative"},
                                                          {"quickLookURL", 1},
                                                          {"excludedAppParts", {nullptr}},
                                                          {"selectedAppID", false},
                                                          {"appQuery", nullptr},
                                                          {"appSort", "biggest"},
                                                          {"storagePath", "Users"},
                                                          {"storageHover", Json::array()}};
    for (const auto& [name, value] : wrong) {
        const std::string sentence = driver().error(
            {{"set", {{name, value}, {"appQuery", name == "appQuery" ? value : "x"}}}});
        EXPECT_NE(sentence.find(name), std::string::npos) << sentence;
    }
    for (const std::string name : {"scanPhase", "hasOnboarded", "history", "fullDiskAccess",
                                   "lastScanAt", "tasks", "slices", ""}) {
        driver().error({{"set", {{"appQuery", "x"}, {name, nullptr}}}});
    }
    EXPECT_EQ(driver().get("appQuery"), "");
    EXPECT_EQ(driver().get("selection"), "overview");
}

TEST_F(Fields, AreStoredWhereTheyOutliveTheRun) {
    driver().set({{"schedule", "off"},
                  {"remindWhenReady", false},
                  {"showInMenuBar", false},
                  {"alwaysUseTrash", false},
                  {"onboardingStep", "access"},
                  {"selection", "large"},
                  {"fileMinMB", 1.0},
                  {"appQuery", "gone"}});
    driver().call("finishOnboarding");
    EXPECT_EQ(endDriver(), 0);
    const Json expected({{"schedule", "off"},
                         {"remindWhenReady", false},
                         {"showInMenuBar", false},
                         {"alwaysUseTrash", false},
                         {"onboardingStep", "access"},
                         {"hasOnboarded", true},
                         {"selection", "overview"},
                         {"fileMinMB", 500.0},
                         {"appQuery", ""}});
    for (const auto& [name, value] : expected.items()) {
        EXPECT_EQ(driver().get(name), value) << name;
    }
}

}  // namespace
}  // namespace morvane::test
