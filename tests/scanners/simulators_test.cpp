#include "scanners/simulators.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class Simulators : public ScannerTest {
protected:
    const std::vector<std::string> listTool{"/usr/bin/xcrun", "simctl", "runtime", "list", "-j"};
    const Path xcode = library("Developer/Xcode");
    const Path caches = library("Developer/CoreSimulator/Caches");

    void toolSays(std::string output, int status = 0) {
        system.processes.answer(listTool, {status, std::move(output)});
    }
};

TEST_F(Simulators, WithoutXcodeRunNoTool) {
    toolSays(R"({"x": {"identifier": "R1", "sizeBytes": 10}})");
    files.addFolder("/Applications/Xcode");
    files.addFolder("/Applications/NotXcode.app");
    files.addFile(xcode / "iOS DeviceSupport/17.2/data", 5);
    EXPECT_THAT(idsOf(scanSimulators(scan())),
                ElementsAre("ds:/Users/sam/Library/Developer/Xcode/iOS DeviceSupport/17.2"));
    EXPECT_THAT(system.processes.runs(), IsEmpty());
}

TEST_F(Simulators, AskTheToolWhenThereIsAnyXcode) {
    toolSays(R"({"x": {"identifier": "R1", "sizeBytes": 10}})");
    files.addFolder("/Applications/Xcode-beta.app");
    EXPECT_THAT(idsOf(scanSimulators(scan())), ElementsAre("rt:R1"));
    EXPECT_THAT(system.processes.runs(), ElementsAre(fakes::FakeProcesses::Run{listTool, 30s}));
}

TEST_F(Simulators, TakeAHiddenXcodeForOne) {
    files.addFolder("/Applications/Xcode.app");
    files.change("/Applications/Xcode.app", [](Attributes& marks) { marks.isHidden = true; });
    EXPECT_THAT(scanSimulators(scan()), IsEmpty());
    EXPECT_THAT(system.processes.runs(), SizeIs(1));
}

TEST_F(Simulators, WithAFailingToolStillFindFiles) {
    files.addFolder("/Applications/Xcode.app");
    files.addFile(xcode / "iOS DeviceSupport/17.2/data", 5);
    EXPECT_THAT(scanSimulators(scan()), SizeIs(1));
    toolSays(R"({"x": {"identifier": "R1", "sizeBytes": 10}})", 143);
    EXPECT_THAT(scanSimulators(scan()), SizeIs(1));
    toolSays("garbage");
    EXPECT_THAT(scanSimulators(scan()), SizeIs(1));
}

TEST_F(Simulators, KeepDeviceSupportOfEachPlatform) {
    files.addFile(xcode / "macOS DeviceSupport/14.0/data", 1);
    files.addFile(xcode / "visionOS DeviceSupport/1.0/data", 2);
    files.addFile(xcode / "tvOS DeviceSupport/17.0/data", 3);
    files.addFile(xcode / "watchOS DeviceSupport/10.0/data", 4);
    files.addFile(xcode / "iOS DeviceSupport/17.2 (21C62)/data", 999'999, daysAgo(1));
    files.addFile(xcode / "Other DeviceSupport/1/data", 5);
    const auto items = scanSimulators(scan());
    EXPECT_THAT(namesOf(items),
                ElementsAre("iOS 17.2 (21C62) device support", "watchOS 10.0 device support",
                            "tvOS 17.0 device support", "visionOS 1.0 device support",
                            "macOS 14.0 device support"));
    const Path folder = xcode / "iOS DeviceSupport";
    EXPECT_EQ(
        items.at(0),
        (CleanupItem{
            .id = "ds:/Users/sam/Library/Developer/Xcode/iOS DeviceSupport/17.2 (21C62)",
            .name = "iOS 17.2 (21C62) device support",
            .bytes = 999'999,
            .safety = Safety::regenerates,
            .location = "~/Library/Developer/Xcode/iOS DeviceSupport/17.2 (21C62)",
            .explanation = "",
            .lastUsed = "Used yesterday",
            .revealURL = folder / "17.2 (21C62)",
            .action = TrashAction{{{folder / "17.2 (21C62)", 999'999, files.identity(folder)}}}}));
    EXPECT_EQ(items.at(1).lastUsed, "");
}

TEST_F(Simulators, TakeAFileOfDeviceSupportByItself) {
    files.addFile(xcode / "iOS DeviceSupport/stray", 8, daysAgo(2));
    files.addFile(xcode / "iOS DeviceSupport/empty", 0, daysAgo(2));
    files.addFile(xcode / "iOS DeviceSupport/broken", 8);
    files.breakAttributes(xcode / "iOS DeviceSupport/broken");
    const auto items = scanSimulators(scan());
    ASSERT_THAT(namesOf(items), ElementsAre("iOS stray device support"));
    EXPECT_EQ(items[0].lastUsed, "Used 2 days ago");
}

TEST_F(Simulators, OfferTheChildrenOfTheirCaches) {
    files.addFile(caches / "dyld/data", 100, daysAgo(400));
    files.addFile(caches / "empty", 0, daysAgo(1));
    files.addFile(caches / ".hidden", 11, daysAgo(2));
    const auto items = scanSimulators(scan());
    const FolderIdentity folder = files.identity(caches);
    EXPECT_THAT(items,
                ElementsAre(CleanupItem{.id = "simcache",
                                        .name = "Simulator caches",
                                        .bytes = 111,
                                        .safety = Safety::regenerates,
                                        .location = "~/Library/Developer/CoreSimulator/Caches",
                                        .explanation = "",
                                        .lastUsed = "Used yesterday",
                                        .revealURL = caches,
                                        .action = TrashAction{{{caches / "dyld", 100, folder},
                                                               {caches / "empty", 0, folder}}}}));
}

TEST_F(Simulators, OfferNoCachesOfNoBytes) {
    files.addFile(caches / "empty", 0);
    EXPECT_THAT(scanSimulators(scan()), IsEmpty());
}

TEST_F(Simulators, ComeLargestFirst) {
    files.addFolder("/Applications/Xcode.app");
    toolSays(R"({"x": {"identifier": "R1", "sizeBytes": 10}})");
    files.addFile(caches / "data", 30);
    files.addFile(xcode / "iOS DeviceSupport/17.2/data", 20);
    EXPECT_THAT(namesOf(scanSimulators(scan())),
                ElementsAre("Simulator caches", "iOS 17.2 device support", "Simulator  runtime"));
}

}  // namespace
}  // namespace morvane::CleanupScanner
