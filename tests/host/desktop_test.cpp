#include "platform/folder/desktop.h"

#include <fstream>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "host/host_disk.h"
#include "platform/folder/effect_file.h"
#include "platform/folder/folder_platform.h"
#include "tasks/event_loop.h"

namespace morvane::folder {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Writes down what it is asked.
class RecordingDesktop final : public Desktop {
public:
    void openURL(const std::string& url) override { asked.push_back("url " + url); }
    void open(const std::filesystem::path& place) override {
        asked.push_back("open " + place.native());
    }
    void reveal(const std::filesystem::path& place) override {
        asked.push_back("reveal " + place.native());
    }
    void activate() override { asked.push_back("activate"); }
    void readNotificationStatus(std::function<void(PermissionStatus)> answer) override {
        answer(PermissionStatus::granted);
    }
    void requestNotifications(std::function<void()> done) override {
        asked.push_back("request");
        done();
    }
    void postNotification(const std::string& identifier, const std::string& title,
                          const std::string& body) override {
        asked.push_back(identifier + ": " + title + ", " + body);
    }

    std::vector<std::string> asked;
};

class RecordingWindows final : public OwnWindows {
public:
    [[nodiscard]] bool isActive() const override { return active; }
    void chooseFolders(const Workspace::FolderPanel& panel, Chosen chosen) override {
        prompts.push_back(panel.prompt);
        chosen({{"/Users/sam/Music"}});
    }

    bool active = true;
    std::vector<std::string> prompts;
};

class PluggedPlatform : public testing::Test {
protected:
    void open(const std::string& text, Surroundings surroundings) {
        disk.write(text);
        auto opened = FolderPlatform::open(disk.folder());
        ASSERT_TRUE(std::holds_alternative<std::unique_ptr<FolderPlatform>>(opened));
        folder = std::get<0>(std::move(opened));
        folder->start(loop, surroundings);
    }
    Workspace& workspace() { return folder->platform().workspace; }
    std::vector<std::string> effects() {
        std::vector<std::string> texts;
        for (const Effect& effect : folder->effects().take()) texts.push_back(effectJSON(effect));
        return texts;
    }
    std::vector<std::string> choose() {
        std::vector<std::string> folders{"no answer"};
        workspace().chooseFolders({.prompt = "Ignore"}, [&](const auto& chosen) {
            folders.clear();
            for (const auto& path : chosen.value_or(std::vector<std::filesystem::path>{"none"})) {
                folders.push_back(path.native());
            }
        });
        loop.runReady();
        return folders;
    }

    HostDisk disk;
    EventLoop loop;
    std::unique_ptr<FolderPlatform> folder;
    RecordingDesktop desktop;
    RecordingWindows windows;
};

TEST_F(PluggedPlatform, HandsTheDesktopThePlaceOnThisMachine) {
    open("{}", {.desktop = &desktop});
    std::ofstream(disk.at("/Users/sam/a\xff.dmg")) << "x";
    workspace().openURL("https://example.invalid/");
    workspace().open("/Users/sam/a\xff.dmg");
    workspace().reveal("/Users/sam/a\xff.dmg");
    workspace().activate();
    EXPECT_THAT(desktop.asked,
                ElementsAre("url https://example.invalid/",
                            "open " + disk.at("/Users/sam/a\xff.dmg").native(),
                            "reveal " + disk.at("/Users/sam/a\xff.dmg").native(), "activate"));
    EXPECT_THAT(effects(), IsEmpty());
}

TEST_F(PluggedPlatform, FollowsLinksWithinTheDiskBeforeTheDesktopSeesThem) {
    open("{}", {.desktop = &desktop});
    std::filesystem::create_directories(disk.at("/etc"));
    std::ofstream(disk.at("/etc/passwd")) << "of the disk";
    std::filesystem::create_symlink("/etc/passwd", disk.at("/Users/sam/link"));
    std::filesystem::create_symlink("/Users", disk.at("/people"));
    workspace().open("/people/sam/link");
    workspace().reveal("/people/sam/link");
    EXPECT_THAT(desktop.asked, ElementsAre("open " + disk.at("/etc/passwd").native(),
                                           "reveal " + disk.at("/Users/sam/link").native()));
}

TEST_F(PluggedPlatform, AsksForNothingThatIsGone) {
    open("{}", {.desktop = &desktop});
    std::filesystem::create_symlink("/nowhere", disk.at("/Users/sam/dangling"));
    workspace().open("/Users/sam/gone");
    workspace().reveal("/Users/sam/gone");
    workspace().open("/Users/sam/dangling");
    EXPECT_THAT(desktop.asked, IsEmpty());
    workspace().reveal("/Users/sam/dangling");
    EXPECT_THAT(desktop.asked, ElementsAre("reveal " + disk.at("/Users/sam/dangling").native()));
}

TEST_F(PluggedPlatform, LeavesNotificationsToTheDesktop) {
    open(R"({"notifications": "denied"})", {.desktop = &desktop});
    NotificationCenter& center = folder->platform().notifications;
    std::optional<PermissionStatus> status;
    center.readStatus([&](PermissionStatus read) { status = read; });
    center.requestAuthorization(7, [] {});
    center.post("ready", "Ready", "3 GB");
    EXPECT_EQ(status, PermissionStatus::granted);
    EXPECT_THAT(desktop.asked, ElementsAre("request", "ready: Ready, 3 GB"));
}

TEST_F(PluggedPlatform, LeavesApplicationsToTheDisk) {
    open(R"({"runningApplications": [{"bundleIdentifier": "a"}]})", {.desktop = &desktop});
    workspace().terminate(workspace().runningApplications().at(0));
    EXPECT_TRUE(workspace().runningApplications().empty());
    EXPECT_THAT(desktop.asked, IsEmpty());
}

TEST_F(PluggedPlatform, AsksItsWindowsWhetherItIsInFrontAndWhichFolders) {
    open("{}", {.desktop = &desktop, .windows = &windows});
    EXPECT_TRUE(workspace().isActive());
    windows.active = false;
    EXPECT_FALSE(workspace().isActive());
    EXPECT_THAT(choose(), ElementsAre("/Users/sam/Music"));
    EXPECT_THAT(windows.prompts, ElementsAre("Ignore"));
}

TEST_F(PluggedPlatform, LetsTheHostChooseInTheUsersPlace) {
    open(R"({"openPanel": ["/a"]})", {.desktop = &desktop, .windows = &windows});
    EXPECT_THAT(choose(), ElementsAre("/a"));
    EXPECT_EQ(folder->replaceHost({{"openPanel", nullptr}}), std::nullopt);
    EXPECT_THAT(choose(), ElementsAre("none"));
    EXPECT_THAT(windows.prompts, IsEmpty());
}

TEST_F(PluggedPlatform, WithWindowsAloneSaysWhatItWouldAskOfADesktop) {
    open("{}", {.windows = &windows});
    workspace().reveal("/Users/sam/gone");
    EXPECT_THAT(choose(), ElementsAre("/Users/sam/Music"));
    EXPECT_THAT(effects(),
                ElementsAre(R"({"reveal":["/Users/sam/gone"]})",
                            R"({"openPanel":{"prompt":"Ignore","message":"","directory":""}})"));
}

std::vector<std::string> lines(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> found;
    for (std::string line; std::getline(stream, line);) found.push_back(line);
    return found;
}

TEST(EffectFile, HoldsEachEffectAsSoonAsItHappened) {
    HostDisk disk;
    const auto path = disk.folder() / "effects";
    std::ofstream(path) << "of an earlier run\n";
    const auto file = EffectFile::open(path);
    ASSERT_TRUE(file.has_value());
    EXPECT_THAT(lines(path), IsEmpty());
    EffectLog log;
    log.add({"activate", true});
    log.handTo([&](const Effect& effect) { file->write(effect); });
    EXPECT_THAT(lines(path), ElementsAre(R"({"activate":true})"));
    log.add({"openURL", std::string("a\nb")});
    EXPECT_THAT(lines(path), ElementsAre(R"({"activate":true})", R"({"openURL":"a\nb"})"));
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST(EffectFile, IsRefusedWhereItCannotBeWritten) {
    HostDisk disk;
    EXPECT_FALSE(EffectFile::open(disk.folder() / "no/folder").has_value());
    EXPECT_FALSE(EffectFile::open(disk.folder()).has_value());
}

}  // namespace
}  // namespace morvane::folder
