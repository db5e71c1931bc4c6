#include "platform/folder/host_file.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include "host/host_disk.h"

namespace morvane::folder {
namespace {

using namespace std::chrono_literals;
using Paths = std::vector<std::filesystem::path>;

constexpr Instant noon{std::chrono::seconds(1795262400)};  // 2026-11-21T12:00:00Z

class HostFile : public testing::Test {
protected:
    [[nodiscard]] Host read(const std::string& text) const {
        const HostReading reading = readHost(text, disk.root());
        if (const auto* error = std::get_if<HostError>(&reading)) {
            ADD_FAILURE() << error->line;
            return {};
        }
        return std::get<Host>(reading);
    }
    // The line that tells what is wrong, or "taken".
    [[nodiscard]] std::string wrong(const std::string& text) const {
        const HostReading reading = readHost(text, disk.root());
        const auto* error = std::get_if<HostError>(&reading);
        return error ? error->line : "taken";
    }
    [[nodiscard]] static std::string wrongLater(const std::string& text) {
        const HostReading reading = replaceKeys({}, nlohmann::json::parse(text));
        const auto* error = std::get_if<HostError>(&reading);
        return error ? error->line : "taken";
    }

    HostDisk disk;
};

void expectWhatHoldsWithoutKeys(const Host& host) {
    EXPECT_EQ(host.home, "/Users/sam");
    EXPECT_FALSE(host.now.has_value());
    EXPECT_EQ(host.region.timeZone, "UTC");
    EXPECT_EQ(host.region.locale, "en_US");
    EXPECT_TRUE(host.active);
    EXPECT_EQ(host.bundle.identifier, "app.morvane.Morvane");
    EXPECT_EQ(host.bundle.shortVersion, "0.1.0");
    EXPECT_EQ(host.bundle.version, "1");
    EXPECT_EQ(host.bundle.copyright, "© 2026 The Morvane authors");
    EXPECT_EQ(host.fullDiskAccess, Host::DiskAccess::probe);
    EXPECT_TRUE(host.unreadable.empty());
    EXPECT_TRUE(host.runningApplications.empty());
    EXPECT_EQ(host.notifications, Host::NotificationState::notDetermined);
    EXPECT_EQ(host.answersNotifications, Host::NotificationState::authorized);
    EXPECT_FALSE(host.hasVolume);
    EXPECT_EQ(host.mountedFrom, "/dev/disk3s1s1");
    EXPECT_FALSE(host.openPanel.has_value());
    EXPECT_FALSE(host.bundle.updateFeed.has_value());
    EXPECT_FALSE(host.bundle.updateKey.has_value());
    EXPECT_EQ(host.updates, (Host::Updates{true, false, false}));
    EXPECT_EQ(host.website, "https://example.invalid");
    EXPECT_FALSE(host.acknowledgements.has_value());
}

TEST_F(HostFile, IsOptionalAndSoIsEveryKey) {
    const HostReading none = readHostFile(disk.file(), disk.root());
    ASSERT_TRUE(std::holds_alternative<Host>(none));
    expectWhatHoldsWithoutKeys(std::get<Host>(none));
    expectWhatHoldsWithoutKeys(read("{}"));
}

TEST_F(HostFile, TakesNullForAnAbsentKey) {
    expectWhatHoldsWithoutKeys(read(
        R"({"home":null,"now":null,"timeZone":null,"locale":null,"active":null,"bundle":null,
            "fullDiskAccess":null,"unreadable":null,"runningApplications":null,
            "notifications":null,"answersNotifications":null,"metadata":null,"dates":null})"));
}

TEST_F(HostFile, GivesAnswersToAll) {
    const Host host = read(R"({
        "home": "/Users/anna/", "now": "2026-11-21T13:00:00+01:00", "timeZone": "Europe/Berlin",
        "locale": "de_DE", "active": false,
        "bundle": {"identifier": null, "version": "7"}, "fullDiskAccess": "denied",
        "unreadable": ["/a"], "immovable": ["/b", "/b%FF"], "mounts": ["/c"], "hidden": ["/d"],
        "packages": ["/e"], "aliases": ["/f"], "displayNames": {"/g": "Gee"},
        "runningApplications": [{}, {"bundleIdentifier": "org.x", "bundlePath": "/x.app",
            "refusesToQuit": true, "quitsAfter": 1.5}],
        "registeredApplications": {"org.x": "/x.app"},
        "metadata": {"/g": {"lastUsed": "2026-11-21T12:00:00Z"}, "/h": {}},
        "dates": {"/g": {"added": "2026-11-21T12:00:00.5Z", "created": null}},
        "notifications": "ephemeral", "answersNotifications": "denied",
        "volume": {"name": "Disk", "total": 9007199254740993, "available": null},
        "mountedFrom": "/dev/disk1s1", "openPanel": ["/i"],
        "updates": {"canCheck": false, "downloads": true, "checks": null, "feed": 1},
        "website": "https://example.org", "acknowledgements": "Thanks.\n", "later": {}})");
    EXPECT_EQ(host.home, "/Users/anna");
    EXPECT_EQ(host.now, noon);
    EXPECT_EQ(host.region.timeZone, "Europe/Berlin");
    EXPECT_EQ(host.region.locale, "de_DE");
    EXPECT_FALSE(host.active);
    EXPECT_FALSE(host.bundle.identifier.has_value());
    EXPECT_EQ(host.bundle.shortVersion, "0.1.0");
    EXPECT_EQ(host.bundle.version, "7");
    EXPECT_EQ(host.fullDiskAccess, Host::DiskAccess::denied);
    EXPECT_EQ(host.unreadable, Paths({"/a"}));
    EXPECT_EQ(host.immovable, Paths({"/b", "/b\xff"}));
    EXPECT_EQ(host.mounts, Paths({"/c"}));
    EXPECT_EQ(host.hidden, Paths({"/d"}));
    EXPECT_EQ(host.packages, Paths({"/e"}));
    EXPECT_EQ(host.aliases, Paths({"/f"}));
    EXPECT_EQ(host.displayNames.at("/g"), "Gee");
    ASSERT_EQ(host.runningApplications.size(), 2U);
    EXPECT_EQ(host.runningApplications[0], Host::Application{});
    EXPECT_EQ(host.runningApplications[1], (Host::Application{.bundleIdentifier = "org.x",
                                                              .bundlePath = "/x.app",
                                                              .refusesToQuit = true,
                                                              .quitsAfter = 1500ms}));
    EXPECT_EQ(host.registeredApplications.at("org.x"), "/x.app");
    EXPECT_EQ(host.metadata.at("/g").lastUsed, noon);
    EXPECT_FALSE(host.metadata.at("/g").added.has_value());
    EXPECT_TRUE(host.metadata.contains("/h"));
    EXPECT_EQ(host.dates.at("/g").added, noon + 500ms);
    EXPECT_FALSE(host.dates.at("/g").created.has_value());
    EXPECT_EQ(host.notifications, Host::NotificationState::ephemeral);
    EXPECT_EQ(host.answersNotifications, Host::NotificationState::denied);
    ASSERT_TRUE(host.volume.has_value());
    EXPECT_EQ(host.volume->name, "Disk");
    EXPECT_EQ(host.volume->total, 9007199254740993);
    EXPECT_FALSE(host.volume->available.has_value());
    EXPECT_EQ(host.mountedFrom, "/dev/disk1s1");
    EXPECT_EQ(host.openPanel, Paths({"/i"}));
    EXPECT_EQ(host.updates, (Host::Updates{false, false, true}));
    EXPECT_EQ(host.website, "https://example.org");
    EXPECT_EQ(host.acknowledgements, "Thanks.\n");
}

TEST_F(HostFile, TakesNullForAnAnswerWhereItIsOne) {
    const Host host = read(R"({"volume": null, "mountedFrom": null, "openPanel": null})");
    EXPECT_TRUE(host.hasVolume);
    EXPECT_FALSE(host.volume.has_value());
    EXPECT_FALSE(host.mountedFrom.has_value());
    EXPECT_FALSE(host.openPanel.has_value());
}

TEST_F(HostFile, NamesTheKeyOfAWrongType) {
    EXPECT_EQ(wrong(R"({"home": 1})"), "host.json: home must be an absolute path");
    EXPECT_EQ(wrong(R"({"home": "Users/sam"})"), "host.json: home must be an absolute path");
    EXPECT_EQ(wrong(R"({"home": ""})"), "host.json: home must be an absolute path");
    EXPECT_EQ(wrong(R"({"home": "/Users/\u0000"})"), "host.json: home must be an absolute path");
    EXPECT_EQ(wrong(R"({"now": "today"})"),
              "host.json: now must be a date such as \"2026-11-21T12:00:00Z\"");
    EXPECT_EQ(wrong(R"({"timeZone": []})"), "host.json: timeZone must be a text");
    EXPECT_EQ(wrong(R"({"locale": true})"), "host.json: locale must be a text");
    EXPECT_EQ(wrong(R"({"active": "yes"})"), "host.json: active must be true or false");
    EXPECT_EQ(wrong(R"({"bundle": "x"})"), "host.json: bundle must be an object");
    EXPECT_EQ(wrong(R"({"bundle": {"version": 1}})"), "host.json: bundle.version must be a text");
    EXPECT_EQ(wrong(R"({"fullDiskAccess": "maybe"})"),
              R"(host.json: fullDiskAccess must be one of "probe", "granted", "denied")");
    EXPECT_EQ(wrong(R"({"unreadable": "/a"})"), "host.json: unreadable must be a list");
    EXPECT_EQ(wrong(R"({"immovable": ["/a", null]})"),
              "host.json: immovable[1] must be an absolute path");
    EXPECT_EQ(wrong(R"({"mounts": ["a"]})"), "host.json: mounts[0] must be an absolute path");
    EXPECT_EQ(wrong(R"({"hidden": {}})"), "host.json: hidden must be a list");
    EXPECT_EQ(wrong(R"({"packages": [{}]})"), "host.json: packages[0] must be an absolute path");
    EXPECT_EQ(wrong(R"({"aliases": 0})"), "host.json: aliases must be a list");
    EXPECT_EQ(wrong(R"({"displayNames": {"/a": 1}})"), "host.json: displayNames./a must be a text");
    EXPECT_EQ(wrong(R"({"displayNames": {"a": "A"}})"),
              "host.json: displayNames must be an absolute path, where it names an entry");
    EXPECT_EQ(wrong(R"({"displayNames": {"/a\nb": 1}})"),
              "host.json: displayNames./a b must be a text");
    EXPECT_EQ(wrong(R"({"runningApplications": {}})"),
              "host.json: runningApplications must be a list");
    EXPECT_EQ(wrong(R"({"runningApplications": [{}, 7]})"),
              "host.json: runningApplications[1] must be an object");
    EXPECT_EQ(wrong(R"({"runningApplications": [{"bundleIdentifier": 7}]})"),
              "host.json: runningApplications[0].bundleIdentifier must be a text");
    EXPECT_EQ(wrong(R"({"runningApplications": [{"bundlePath": "x"}]})"),
              "host.json: runningApplications[0].bundlePath must be an absolute path");
    EXPECT_EQ(wrong(R"({"runningApplications": [{"refusesToQuit": 1}]})"),
              "host.json: runningApplications[0].refusesToQuit must be true or false");
    EXPECT_EQ(wrong(R"({"runningApplications": [{"quitsAfter": -1}]})"),
              "host.json: runningApplications[0].quitsAfter must be a number of seconds");
    EXPECT_EQ(wrong(R"({"runningApplications": [{"quitsAfter": 1e300}]})"),
              "host.json: runningApplications[0].quitsAfter must be a number of seconds");
    EXPECT_EQ(wrong(R"({"registeredApplications": {"x": "y"}})"),
              "host.json: registeredApplications.x must be an absolute path");
    EXPECT_EQ(wrong(R"({"metadata": {"/a": "x"}})"), "host.json: metadata./a must be an object");
    EXPECT_EQ(wrong(R"({"metadata": {"/a": {"lastUsed": 5}}})"),
              "host.json: metadata./a.lastUsed must be a date such as \"2026-11-21T12:00:00Z\"");
    EXPECT_EQ(wrong(R"({"dates": {"/a": {"created": "x"}}})"),
              "host.json: dates./a.created must be a date such as \"2026-11-21T12:00:00Z\"");
    EXPECT_EQ(wrong(R"({"notifications": "granted"})"),
              R"(host.json: notifications must be one of "notDetermined", "denied", "authorized", )"
              R"("provisional", "ephemeral")");
    EXPECT_EQ(wrong(R"({"answersNotifications": "provisional"})"),
              R"(host.json: answersNotifications must be one of "authorized", "denied")");
    EXPECT_EQ(wrong(R"({"volume": 5})"), "host.json: volume must be an object");
    EXPECT_EQ(wrong(R"({"volume": {"name": 5}})"), "host.json: volume.name must be a text");
    EXPECT_EQ(wrong(R"({"volume": {"total": 1.5}})"),
              "host.json: volume.total must be a whole number of bytes");
    EXPECT_EQ(wrong(R"({"mountedFrom": 5})"), "host.json: mountedFrom must be a text");
    EXPECT_EQ(wrong(R"({"openPanel": "/a"})"), "host.json: openPanel must be a list");
    EXPECT_EQ(wrong(R"({"updates": true})"), "host.json: updates must be an object");
    EXPECT_EQ(wrong(R"({"updates": {"canCheck": 1}})"),
              "host.json: updates.canCheck must be true or false");
    EXPECT_EQ(wrong(R"({"updates": {"checks": "no"}})"),
              "host.json: updates.checks must be true or false");
    EXPECT_EQ(wrong(R"({"updates": {"downloads": []}})"),
              "host.json: updates.downloads must be true or false");
    EXPECT_EQ(wrong(R"({"bundle": {"updateFeed": 1}})"),
              "host.json: bundle.updateFeed must be a text");
    EXPECT_EQ(wrong(R"({"website": 5})"), "host.json: website must be a text");
    EXPECT_EQ(wrong(R"({"acknowledgements": {}})"), "host.json: acknowledgements must be a text");
}

TEST_F(HostFile, MustBeJSONWithAnObject) {
    EXPECT_EQ(wrong(""), "host.json is not JSON");
    EXPECT_EQ(wrong("{\"home\": \"/Users/sam\""), "host.json is not JSON");
    EXPECT_EQ(wrong("{} {}"), "host.json is not JSON");
    EXPECT_EQ(wrong("{\"home\": \"/\xff\"}"), "host.json is not JSON");
    EXPECT_EQ(wrong(std::string(1000000, '[')), "host.json is not JSON");
    EXPECT_EQ(wrong("[]"), "host.json must hold an object");
    EXPECT_EQ(wrong("null"), "host.json must hold an object");
}

TEST_F(HostFile, MustBeAFileThatCanBeRead) {
    const auto line = [&] {
        const HostReading reading = readHostFile(disk.file(), disk.root());
        const auto* error = std::get_if<HostError>(&reading);
        return error ? error->line : "taken";
    };
    std::filesystem::create_directory(disk.file());
    EXPECT_EQ(line(), "host.json cannot be read");
    std::filesystem::remove(disk.file());
    ASSERT_EQ(::mkfifo(disk.file().c_str(), 0600), 0);
    EXPECT_EQ(line(), "host.json cannot be read");
    std::filesystem::remove(disk.file());
    disk.write("{\"active\": 1}");
    EXPECT_EQ(line(), "host.json: active must be true or false");
}

TEST_F(HostFile, FindsTheFirstHomeByTheBytesOfItsName) {
    for (const char* name : {"Shared", ".hidden", "amy", "Zoe", "Ärger"}) {
        std::filesystem::create_directory(disk.at("/Users") / name);
    }
    std::filesystem::create_directory(disk.at("/Users/Adam"));
    std::filesystem::remove(disk.at("/Users/Adam"));
    std::ofstream(disk.at("/Users/Adam")) << "a file";
    std::filesystem::create_symlink("/Users/nobody", disk.at("/Users/Bert"));
    EXPECT_EQ(read("{}").home, "/Users/Zoe");
    EXPECT_EQ(read(R"({"hidden": ["/Users/Zoe/"]})").home, "/Users/amy");
}

TEST_F(HostFile, TakesALinkToAFolderOfTheDiskForAHome) {
    std::filesystem::create_directories(disk.at("/Volumes/Data/sam"));
    std::filesystem::remove(disk.at("/Users/sam"));
    std::filesystem::create_symlink("/Volumes/Data/sam", disk.at("/Users/sam"));
    EXPECT_EQ(read("{}").home, "/Users/sam");
}

TEST_F(HostFile, NeedsAHome) {
    std::filesystem::remove(disk.at("/Users/sam"));
    std::filesystem::create_directory(disk.at("/Users/Shared"));
    EXPECT_EQ(wrong("{}"), "host.json: home is missing, and /Users has no folder");
    std::filesystem::remove_all(disk.at("/Users"));
    EXPECT_EQ(wrong("{}"), "host.json: home is missing, and /Users has no folder");
    EXPECT_EQ(read(R"({"home": "/var/root"})").home, "/var/root");
}

TEST_F(HostFile, ReplacesJustTheKeysOfARequest) {
    Host before = read(R"({"active": false, "hidden": ["/a"], "unreadable": ["/b"],
                           "mountedFrom": "/dev/x", "openPanel": ["/c"]})");
    const HostReading reading = replaceKeys(
        before, nlohmann::json::parse(
                    R"({"hidden": ["/d"], "unreadable": null, "mountedFrom": null, "volume": null,
                        "openPanel": null, "later": 1})"));
    ASSERT_TRUE(std::holds_alternative<Host>(reading));
    const Host& after = std::get<Host>(reading);
    EXPECT_FALSE(after.active);
    EXPECT_EQ(after.home, "/Users/sam");
    EXPECT_EQ(after.hidden, Paths({"/d"}));
    EXPECT_TRUE(after.unreadable.empty());
    EXPECT_FALSE(after.mountedFrom.has_value());
    EXPECT_TRUE(after.hasVolume);
    EXPECT_FALSE(after.openPanel.has_value());
}

TEST_F(HostFile, RefusesARequestForWhatCountsAtTheStart) {
    EXPECT_EQ(wrongLater(R"({"home": "/a"})"), "host: home cannot change while Morvane runs");
    EXPECT_EQ(wrongLater(R"({"now": null})"), "host: now cannot change while Morvane runs");
    EXPECT_EQ(wrongLater(R"({"timeZone": "UTC"})"),
              "host: timeZone cannot change while Morvane runs");
    EXPECT_EQ(wrongLater(R"({"locale": "en"})"), "host: locale cannot change while Morvane runs");
    EXPECT_EQ(wrongLater(R"({"bundle": {}})"), "host: bundle cannot change while Morvane runs");
    EXPECT_EQ(wrongLater(R"({"active": 1})"), "host: active must be true or false");
    EXPECT_EQ(wrongLater(R"([])"), "host must be an object");
    EXPECT_EQ(wrongLater(R"({"active": false})"), "taken");
}

}  // namespace
}  // namespace morvane::folder
