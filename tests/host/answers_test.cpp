#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "host/host_disk.h"
#include "platform/folder/disk_access.h"
#include "platform/folder/disk_metadata.h"
#include "platform/folder/disk_notifications.h"
#include "platform/folder/disk_volume.h"
#include "platform/folder/disk_workspace.h"
#include "platform/folder/host_file.h"
#include "tasks/event_loop.h"

namespace morvane::folder {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr Instant noon{std::chrono::seconds(1795262400)};

// A desktop whose host answers what a text says, on a clock that stands at noon.
struct Desktop {
    explicit Desktop(const std::string& text) : answers(read(text)) {}

    Host read(const std::string& text) { return std::get<Host>(readHost(text, disk.root())); }
    void replace(const std::string& text) {
        answers.replace(
            std::get<Host>(replaceKeys(*answers.current(), nlohmann::json::parse(text))));
        workspace.applicationsReplaced();
    }
    std::vector<std::string> asked() {
        std::vector<std::string> texts;
        for (const Effect& effect : effects.take()) texts.push_back(effectJSON(effect));
        return texts;
    }
    std::vector<std::string> running() {
        std::vector<std::string> names;
        for (const auto& application : workspace.runningApplications()) {
            names.push_back(application.bundleIdentifier.value_or("?") + " " +
                            std::to_string(application.process));
        }
        return names;
    }

    HostDisk disk;
    HostAnswers answers;
    EffectLog effects;
    EventLoop loop{noon};
    DiskWorkspace workspace{answers, effects, loop};
    DiskNotifications notifications{answers, effects, loop};
    DiskMetadata metadata{answers};
    DiskVolume volume{answers, disk.root()};
};

TEST(RunningApplications, EndWhenAskedTo) {
    Desktop desktop(R"({"runningApplications": [{"bundleIdentifier": "a"}]})");
    const auto application = desktop.workspace.runningApplications().at(0);
    EXPECT_FALSE(desktop.workspace.isTerminated(application));
    desktop.workspace.terminate(application);
    EXPECT_TRUE(desktop.workspace.isTerminated(application));
    EXPECT_TRUE(desktop.workspace.runningApplications().empty());
    EXPECT_THAT(desktop.asked(), ElementsAre(R"({"terminate":"a"})"));
    desktop.workspace.terminate(application);
    EXPECT_TRUE(desktop.asked().empty());
}

TEST(RunningApplications, EndInTheirOwnTimeByTheProgramsClock) {
    Desktop desktop(R"({"runningApplications": [{"bundleIdentifier": "a", "quitsAfter": 2.5}]})");
    const auto application = desktop.workspace.runningApplications().at(0);
    desktop.loop.advance(10s);
    desktop.workspace.terminate(application);
    desktop.loop.advance(1s);
    desktop.workspace.terminate(application);  // being asked twice gives no further time
    desktop.loop.advance(1499ms);
    EXPECT_FALSE(desktop.workspace.isTerminated(application));
    desktop.loop.advance(1ms);
    EXPECT_TRUE(desktop.workspace.isTerminated(application));
}

TEST(RunningApplications, MayRefuse) {
    Desktop desktop(R"({"runningApplications": [{"bundlePath": "/x%FF.app",
                                                 "refusesToQuit": true}]})");
    const auto application = desktop.workspace.runningApplications().at(0);
    desktop.workspace.terminate(application);
    desktop.loop.advance(std::chrono::hours(1));
    EXPECT_FALSE(desktop.workspace.isTerminated(application));
    EXPECT_THAT(desktop.asked(), ElementsAre(R"({"terminate":"/x%FF.app"})"));
}

TEST(RunningApplications, TellTwoProcessesOfOneApart) {
    Desktop desktop(R"({"runningApplications": [{"bundleIdentifier": "a"},
                                                {"bundleIdentifier": "a"}]})");
    desktop.workspace.terminate(desktop.workspace.runningApplications().at(0));
    EXPECT_THAT(desktop.running(), ElementsAre("a 2"));
}

TEST(RunningApplications, KeepTheirProcessWhenTheListIsGivenAnew) {
    Desktop desktop(R"({"runningApplications": [{"bundleIdentifier": "a"},
                        {"bundleIdentifier": "b"}, {"bundleIdentifier": "c"}]})");
    const auto all = desktop.workspace.runningApplications();
    desktop.workspace.terminate(all.at(2));
    desktop.replace(R"({"runningApplications": [{"bundleIdentifier": "d"},
                        {"bundleIdentifier": "c"}, {"bundleIdentifier": "b"}]})");
    // "a" has ended, "c" was started again.
    EXPECT_THAT(desktop.running(), ElementsAre("d 4", "c 5", "b 2"));
    EXPECT_TRUE(desktop.workspace.isTerminated(all.at(0)));
    EXPECT_FALSE(desktop.workspace.isTerminated(all.at(1)));
    EXPECT_TRUE(desktop.workspace.isTerminated(all.at(2)));
}

TEST(RunningApplications, StayOnTheirWayOutWhenTheListIsGivenAnew) {
    Desktop desktop(R"({"runningApplications": [{"bundleIdentifier": "a", "quitsAfter": 5}]})");
    const auto application = desktop.workspace.runningApplications().at(0);
    desktop.workspace.terminate(application);
    desktop.replace(R"({"runningApplications": [{"bundleIdentifier": "a", "quitsAfter": 5}]})");
    EXPECT_FALSE(desktop.workspace.isTerminated(application));
    desktop.loop.advance(5s);
    EXPECT_TRUE(desktop.workspace.isTerminated(application));
}

TEST(Workspace, RecordsWhatItIsAskedFor) {
    Desktop desktop("{}");
    desktop.workspace.openURL("https://example.invalid/\"a\"");
    desktop.workspace.open("/Users/sam/a\xff.dmg");
    desktop.workspace.reveal("/Users/sam/100%25");
    desktop.workspace.activate();
    EXPECT_THAT(desktop.asked(),
                ElementsAre(R"({"openURL":"https://example.invalid/\"a\""})",
                            R"({"open":["/Users/sam/a%FF.dmg"]})",
                            R"({"reveal":["/Users/sam/100%2525"]})", R"({"activate":true})"));
}

TEST(Workspace, AnswersByTheHost) {
    Desktop desktop(R"({"registeredApplications": {"org.x": "/x.app"}, "active": false})");
    EXPECT_EQ(desktop.workspace.applicationURL("org.x"), "/x.app");
    EXPECT_FALSE(desktop.workspace.applicationURL("org.y").has_value());
    EXPECT_FALSE(desktop.workspace.isActive());
    desktop.replace(R"({"active": true})");
    EXPECT_TRUE(desktop.workspace.isActive());
}

TEST(Workspace, LetsFoldersBeChosenAtALaterTurn) {
    Desktop desktop(R"({"openPanel": ["/a", "/b"]})");
    std::vector<std::string> answers;
    const auto chosen = [&](const std::optional<std::vector<std::filesystem::path>>& folders) {
        answers.push_back(folders ? std::to_string(folders->size()) : "dismissed");
    };
    desktop.workspace.chooseFolders(
        {.prompt = "Ignore", .message = "Which?", .directory = "/Users/sam"}, chosen);
    EXPECT_TRUE(answers.empty());
    desktop.replace(R"({"openPanel": null})");
    desktop.workspace.chooseFolders({}, chosen);
    desktop.loop.runReady();
    EXPECT_THAT(answers, ElementsAre("2", "dismissed"));
    EXPECT_THAT(
        desktop.asked(),
        ElementsAre(
            R"({"openPanel":{"prompt":"Ignore","message":"Which?","directory":"/Users/sam"}})",
            R"({"openPanel":{"prompt":"","message":"","directory":""}})"));
}

class NotificationStates : public testing::TestWithParam<std::pair<std::string, PermissionStatus>> {
};

TEST_P(NotificationStates, CountAsWhatTheyLetThrough) {
    Desktop desktop(R"({"notifications": ")" + GetParam().first + R"("})");
    std::optional<PermissionStatus> status;
    desktop.notifications.readStatus([&](PermissionStatus read) { status = read; });
    EXPECT_FALSE(status.has_value());
    desktop.loop.runReady();
    EXPECT_EQ(status, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(All, NotificationStates,
                         testing::Values(std::pair("notDetermined",
                                                   PermissionStatus::notDetermined),
                                         std::pair("denied", PermissionStatus::denied),
                                         std::pair("authorized", PermissionStatus::granted),
                                         std::pair("provisional", PermissionStatus::granted),
                                         std::pair("ephemeral", PermissionStatus::granted)),
                         [](const auto& info) { return info.param.first; });

TEST(Notifications, AreDecidedOnceByTheUsersAnswer) {
    Desktop desktop(R"({"answersNotifications": "denied"})");
    int answered = 0;
    std::optional<PermissionStatus> status;
    desktop.notifications.requestAuthorization(7, [&] { ++answered; });
    EXPECT_EQ(answered, 0);
    desktop.loop.runReady();
    EXPECT_EQ(answered, 1);
    desktop.notifications.readStatus([&](PermissionStatus read) { status = read; });
    desktop.loop.runReady();
    EXPECT_EQ(status, PermissionStatus::denied);

    desktop.replace(R"({"answersNotifications": "authorized"})");
    desktop.notifications.requestAuthorization(7, [&] { ++answered; });
    desktop.loop.runReady();
    EXPECT_EQ(answered, 2);
    desktop.notifications.readStatus([&](PermissionStatus read) { status = read; });
    desktop.loop.runReady();
    EXPECT_EQ(status, PermissionStatus::denied);
    EXPECT_THAT(desktop.asked(),
                ElementsAre(R"({"requestNotifications":7})", R"({"requestNotifications":7})"));
}

TEST(Notifications, ArePostedAsEffects) {
    Desktop desktop("{}");
    desktop.notifications.post("ready", "Ready", "3 GB");
    EXPECT_THAT(desktop.asked(),
                ElementsAre(R"({"notification":{"identifier":"ready","title":"Ready","body":)"
                            R"("3 GB"}})"));
}

TEST(Metadata, IsThatOfThePathListed) {
    const Desktop desktop(R"({
        "metadata": {"/Applications/X.app/": {"lastUsed": "2026-11-21T12:00:00Z"}, "/y": {}},
        "dates": {"/y": {"added": "2026-11-21T12:00:01Z", "created": "2026-11-21T12:00:02Z"}}})");
    ASSERT_TRUE(desktop.metadata.item("/Applications/X.app").has_value());
    EXPECT_EQ(desktop.metadata.item("/Applications/./X.app")->lastUsed, noon);
    EXPECT_FALSE(desktop.metadata.item("/y")->lastUsed.has_value());
    EXPECT_FALSE(desktop.metadata.item("/z").has_value());
    EXPECT_EQ(desktop.metadata.addedToFolder("/y"), noon + 1s);
    EXPECT_EQ(desktop.metadata.created("/y"), noon + 2s);
    EXPECT_FALSE(desktop.metadata.addedToFolder("/Applications/X.app").has_value());
    EXPECT_FALSE(desktop.metadata.created("/z").has_value());
}

TEST(VolumeOfADisk, IsTheHosts) {
    Desktop desktop(R"({"volume": {"name": "Disk", "total": 5}})");
    const auto figures = desktop.volume.figures();
    ASSERT_TRUE(figures.has_value());
    EXPECT_EQ(figures->name, "Disk");
    EXPECT_EQ(figures->total, 5);
    EXPECT_FALSE(figures->available.has_value());
    EXPECT_EQ(desktop.volume.mountedFrom(), "/dev/disk3s1s1");
    desktop.replace(R"({"volume": null, "mountedFrom": null})");
    EXPECT_FALSE(desktop.volume.figures().has_value());
    EXPECT_FALSE(desktop.volume.mountedFrom().has_value());
}

TEST(VolumeOfADisk, IsTheOneThatHoldsItWhereTheHostSaysNothing) {
    const Desktop desktop("{}");
    const auto figures = desktop.volume.figures();
    const auto space = std::filesystem::space(desktop.disk.folder());
    ASSERT_TRUE(figures.has_value());
    EXPECT_FALSE(figures->name.has_value());
    EXPECT_EQ(figures->total, static_cast<std::int64_t>(space.capacity));
    EXPECT_GT(figures->available.value_or(0), 0);
    EXPECT_FALSE(figures->availableForImportantUsage.has_value());
}

TEST(DiskAccess, IsAnsweredInPlaceOfTheProbe) {
    EXPECT_EQ(answeredProbe({.fullDiskAccess = Host::DiskAccess::granted}), Probe::opened);
    EXPECT_EQ(answeredProbe({.fullDiskAccess = Host::DiskAccess::denied}), Probe::refused);
    EXPECT_FALSE(answeredProbe({.fullDiskAccess = Host::DiskAccess::probe}).has_value());
}

}  // namespace
}  // namespace morvane::folder
