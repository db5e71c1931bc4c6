#include "removal/uninstall.h"

#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_processes.h"

namespace morvane {
namespace {

using testing::ElementsAre;

const InstalledApp editor{.url = "/Applications/Editor.app",
                          .name = "Editor",
                          .parts = {{"Application", "/Applications/Editor.app", 70'000'000},
                                    {"Caches", "/c/a", 4'000'000},
                                    {"Logs", "/l/bad\xff", 500'000}}};

TEST(UninstalledParts, AreThoseNotUntickedInTheirOrder) {
    EXPECT_EQ(selectedParts(editor, {}), editor.parts);
    EXPECT_THAT(selectedParts(editor, {"/c/a", "/other"}),
                ElementsAre(editor.parts[0], editor.parts[2]));
    EXPECT_THAT(selectedParts(editor, {"/l/bad%FF"}),
                ElementsAre(editor.parts[0], editor.parts[1]));
}

TEST(UninstalledParts, HoldTheBundleByItsExactExtension) {
    EXPECT_TRUE(holdsBundle(editor.parts));
    EXPECT_FALSE(holdsBundle({editor.parts[1], editor.parts[2]}));
    EXPECT_FALSE(holdsBundle({{"Application", "/Applications/Editor.APP", 1}}));
    EXPECT_FALSE(holdsBundle({{"Application", "/Applications/Editor.apps", 1}}));
    EXPECT_FALSE(holdsBundle({}));
}

TEST(LaunchAgent, IsUnloadedFromTheUsersSessionWhateverComesOfIt) {
    const fakes::FakeProcesses processes;
    unloadAgent(processes, "/Users/sam/Library/LaunchAgents/a b.plist");
    ASSERT_EQ(processes.runs().size(), 1U);
    EXPECT_THAT(processes.runs()[0].commandLine,
                ElementsAre("/bin/launchctl", "bootout", "gui/501",
                            "/Users/sam/Library/LaunchAgents/a b.plist"));
}

TEST(UninstallSummary, SaysWhetherTheAppItselfWent) {
    EXPECT_EQ(uninstallSummary(editor, editor.parts), "Uninstalled Editor · 75 MB");
    EXPECT_EQ(uninstallSummary(editor, {editor.parts[1]}), "Editor leftovers · 4 MB");
}

TEST(UninstallResults, TellWhatWentOrWhyNot) {
    const auto result = [](const std::vector<AppPart>& gone, Disposal disposal,
                           const std::optional<Failure>& error = {}) {
        return uninstallResultOf(editor, editor.parts, gone, true, disposal, error);
    };
    const std::vector<AppPart> one{editor.parts[1]};
    EXPECT_EQ(result(editor.parts, Disposal::trash, failureFromErrno(EPERM, "/a")),
              UninstallResult(UninstallRemoved{"Editor", 74.5, true}));
    EXPECT_EQ(result(one, Disposal::trash),
              UninstallResult(RemovalFailed{"Moved 1 of 3 items. The rest couldn’t be removed."}));
    EXPECT_EQ(
        result(one, Disposal::outright),
        UninstallResult(RemovalFailed{"Deleted 1 of 3 items. The rest couldn’t be removed."}));
    EXPECT_EQ(
        result({}, Disposal::trash),
        UninstallResult(RemovalFailed{"Couldn’t move Editor to the Trash. Nothing was moved."}));
    EXPECT_EQ(result({}, Disposal::trash, failureFromErrno(EACCES, "/a")),
              UninstallResult(
                  RemovalFailed{"Couldn’t move Editor to the Trash. macOS does not allow it."}));
    EXPECT_EQ(result({}, Disposal::outright, Failure{Failure::Kind::refused, 0, "/a"}),
              UninstallResult(RemovalFailed{
                  "Couldn’t delete Editor. The item is not where it was found any more."}));
}

}  // namespace
}  // namespace morvane
