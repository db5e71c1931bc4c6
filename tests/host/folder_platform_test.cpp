#include "platform/folder/folder_platform.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "host/host_disk.h"
#include "tasks/event_loop.h"

namespace morvane::folder {
namespace {

using testing::ElementsAre;

using Opened = std::variant<std::unique_ptr<FolderPlatform>, std::string>;

std::string lineOf(const Opened& opened) {
    const auto* line = std::get_if<std::string>(&opened);
    return line ? *line : "opened";
}

// What stands below the top of a disk, by path.
std::vector<std::string> tree(const HostDisk& disk) {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(disk.folder())) {
        paths.push_back(entry.path().lexically_relative(disk.folder()).native());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

TEST(FolderPlatform, NeedsARootFolder) {
    HostDisk disk;
    std::filesystem::remove_all(disk.folder() / "root");
    EXPECT_EQ(lineOf(FolderPlatform::open(disk.folder())),
              "no folder \"root\" in " + disk.folder().native());
    std::ofstream(disk.folder() / "root") << "a file";
    EXPECT_EQ(lineOf(FolderPlatform::open(disk.folder())),
              "no folder \"root\" in " + disk.folder().native());
}

TEST(FolderPlatform, TouchesNothingBeforeItsAnswersAreChecked) {
    HostDisk disk;
    disk.write(R"({"active": 5})");
    EXPECT_EQ(lineOf(FolderPlatform::open(disk.folder())),
              "host.json: active must be true or false");
    EXPECT_THAT(tree(disk), ElementsAre("host.json", "root", "root/Users", "root/Users/sam"));
    disk.write("{}");
    EXPECT_EQ(lineOf(FolderPlatform::open(disk.folder())), "opened");
    EXPECT_THAT(tree(disk), ElementsAre("host.json", "root", "root/Users", "root/Users/sam"));
}

class StartedPlatform : public testing::Test {
protected:
    void open(const std::string& text) {
        disk.write(text);
        Opened opened = FolderPlatform::open(disk.folder().native() + "/");
        ASSERT_TRUE(std::holds_alternative<std::unique_ptr<FolderPlatform>>(opened))
            << lineOf(opened);
        folder = std::get<0>(std::move(opened));
        folder->start(loop);
    }

    HostDisk disk;
    EventLoop loop;
    std::unique_ptr<FolderPlatform> folder;
};

TEST_F(StartedPlatform, HandsOverWhatTheHostSaysOfTheProgram) {
    open(R"({"bundle": {"identifier": "org.x"}, "locale": "de_DE"})");
    const Platform platform = folder->platform();
    EXPECT_EQ(platform.home, "/Users/sam");
    EXPECT_EQ(platform.bundle.identifier, "org.x");
    EXPECT_EQ(platform.region.locale, "de_DE");
    EXPECT_TRUE(platform.files.exists("/Users/sam"));
    EXPECT_TRUE(platform.workspace.isActive());
}

TEST_F(StartedPlatform, ProbesUnlessTheHostAnswers) {
    open("{}");
    const FileSystem& files = folder->platform().files;
    EXPECT_EQ(files.probe("/Users/sam"), Probe::opened);
    EXPECT_EQ(files.probe("/Users/nobody"), Probe::failed);
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"fullDiskAccess": "denied"})")));
    EXPECT_EQ(files.probe("/Users/sam"), Probe::refused);
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"fullDiskAccess": "granted"})")));
    EXPECT_EQ(files.probe("/Users/nobody"), Probe::opened);
}

TEST_F(StartedPlatform, KeepsItsDefaultsUnderTheIdentifierOfTheBundle) {
    open("{}");
    folder->defaults().setBoolean("hasOnboarded", true);
    folder->defaults().flush();
    EXPECT_TRUE(std::filesystem::exists(
        disk.at("/Users/sam/Library/Preferences/app.morvane.Morvane.plist")));
}

TEST_F(StartedPlatform, KeepsItsDefaultsUnderItsNameWithoutAnIdentifier) {
    open(R"({"bundle": {"identifier": null}})");
    folder->defaults().setBoolean("hasOnboarded", true);
    folder->defaults().flush();
    EXPECT_TRUE(std::filesystem::exists(disk.at("/Users/sam/Library/Preferences/Morvane.plist")));
}

TEST_F(StartedPlatform, ReadsItsDefaultsAnewAsARestartWould) {
    open("{}");
    Defaults& former = folder->defaults();
    former.setText("scanSchedule", "Monthly");
    folder->reopenDefaults();
    EXPECT_EQ(folder->defaults().text("scanSchedule"), "Monthly");
    former.setText("scanSchedule", "Off");
    folder->reopenDefaults();
    EXPECT_EQ(folder->defaults().text("scanSchedule"), "Monthly");
}

TEST_F(StartedPlatform, ReadsWhatComesWithTheBundleWhenItIsAskedFor) {
    open(R"({"website": "https://example.org"})");
    const BundleResources& resources = folder->platform().resources;
    EXPECT_EQ(resources.website(), "https://example.org");
    EXPECT_EQ(resources.acknowledgements(), std::nullopt);
    EXPECT_FALSE(
        folder->replaceHost(nlohmann::json::parse(R"({"acknowledgements": "Thanks to all."})")));
    EXPECT_EQ(resources.acknowledgements(), "Thanks to all.");
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"acknowledgements": null})")));
    EXPECT_EQ(resources.acknowledgements(), std::nullopt);
}

TEST_F(StartedPlatform, TellsAtOnceThatACheckCanOrCannotStart) {
    open("{}");
    UpdateService& updates = folder->updates();
    std::vector<bool> told;
    const Subscription subscription =
        updates.observeCanCheck([&] { told.push_back(updates.canCheckForUpdates()); });
    EXPECT_TRUE(updates.canCheckForUpdates());
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"updates": {"canCheck": false}})")));
    EXPECT_THAT(told, ElementsAre(false));
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"active": false})")));
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"updates": null})")));
    EXPECT_THAT(told, ElementsAre(false, true));
}

TEST_F(StartedPlatform, TakesTheUpdateSwitchesAtTheStartAlone) {
    open(R"({"updates": {"checks": true}})");
    UpdateService& updates = folder->updates();
    EXPECT_TRUE(updates.automaticallyChecks());
    EXPECT_FALSE(updates.automaticallyDownloads());
    EXPECT_FALSE(folder->replaceHost(
        nlohmann::json::parse(R"({"updates": {"checks": false, "downloads": true}})")));
    EXPECT_TRUE(updates.automaticallyChecks());
    EXPECT_FALSE(updates.automaticallyDownloads());
}

TEST_F(StartedPlatform, LogsACheckForUpdatesThatCanStart) {
    open("{}");
    folder->updates().start();
    folder->updates().checkForUpdates();
    EXPECT_THAT(folder->effects().take(), ElementsAre(Effect{"checkForUpdates", true}));
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"updates": {"canCheck": false}})")));
    folder->updates().checkForUpdates();
    EXPECT_THAT(folder->effects().take(), ElementsAre());
}

TEST_F(StartedPlatform, ChangesNothingForARequestWithOneWrongKey) {
    open("{}");
    EXPECT_EQ(folder->replaceHost(nlohmann::json::parse(R"({"active": false, "mounts": 1})")),
              "host: mounts must be a list");
    EXPECT_TRUE(folder->platform().workspace.isActive());
}

TEST_F(StartedPlatform, DoesNotStartAgainWhatHasEndedForAnotherKeysSake) {
    open(R"({"runningApplications": [{"bundleIdentifier": "a"}]})");
    Workspace& workspace = folder->platform().workspace;
    workspace.terminate(workspace.runningApplications().at(0));
    EXPECT_FALSE(folder->replaceHost(nlohmann::json::parse(R"({"active": false})")));
    EXPECT_TRUE(workspace.runningApplications().empty());
    EXPECT_FALSE(folder->replaceHost(
        nlohmann::json::parse(R"({"runningApplications": [{"bundleIdentifier": "a"}]})")));
    EXPECT_EQ(workspace.runningApplications().size(), 1U);
}

TEST_F(StartedPlatform, TellsItsToolsWhereTheDiskLies) {
    open("{}");
    std::filesystem::create_directories(disk.at("/bin"));
    std::ofstream(disk.at("/bin/tool")) << "#!/bin/sh\nprintf %s \"$MORVANE_DISK\"\n";
    std::filesystem::permissions(disk.at("/bin/tool"), std::filesystem::perms::owner_all);
    const auto result = folder->platform().processes.run("/bin/tool", {}, std::nullopt, {});
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->output, disk.folder().native());
    const auto effects = folder->effects().take();
    ASSERT_EQ(effects.size(), 1U);
    EXPECT_EQ(effectJSON(effects[0]), R"({"run":["/bin/tool"]})");
}

}  // namespace
}  // namespace morvane::folder
