#include "scanners/dev_sections.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

CleanupItem named(std::string id) {
    CleanupItem item;
    item.id = std::move(id);
    return item;
}

TEST(DevSections, StandInTheirOrder) {
    const auto sections = assembleDevSections(
        {{{named("dd")}, {named("sim")}, {named("arc")}, {named("pkg")}, {named("dock")}}});
    EXPECT_THAT(
        sections,
        ElementsAre(
            DevSection{"dd",
                       "Xcode DerivedData",
                       "hammer",
                       "Build files Xcode recreates the next time you build.",
                       {named("dd")}},
            DevSection{"sim",
                       "Simulators & Devices",
                       "iphone",
                       "Simulator runtimes and device files. Xcode can download them again.",
                       {named("sim")}},
            DevSection{"arc",
                       "Archives",
                       "archivebox",
                       "Builds you shipped. Keep any you still need crash reports for.",
                       {named("arc")}},
            DevSection{"pkg",
                       "Package caches",
                       "shippingbox",
                       "Downloaded packages kept for quicker installs. Fetched again when needed.",
                       {named("pkg")}},
            DevSection{"dock",
                       "Docker",
                       "cube.transparent",
                       "Images, build cache and volumes no container is using.",
                       {named("dock")}}));
}

TEST(DevSections, WithNothingInThemAreDropped) {
    EXPECT_THAT(assembleDevSections({}), IsEmpty());
    const auto sections = assembleDevSections({{{}, {}, {named("a"), named("b")}, {}, {}}});
    ASSERT_THAT(sections, SizeIs(1));
    EXPECT_EQ(sections[0].id, "arc");
    EXPECT_THAT(idsOf(sections[0].items), ElementsAre("a", "b"));
}

class DevScanners : public ScannerTest {};

TEST_F(DevScanners, FillEachItsOwnSection) {
    files.addFile(library("Developer/Xcode/DerivedData/A/data"), 1'000'000);
    files.addFile(library("Developer/CoreSimulator/Caches/data"), 10);
    files.addFile(library("Developer/Xcode/Archives/d/B.xcarchive/data"), 10);
    files.addFile(home(".npm/_cacache/data"), 10);
    files.addFile("/usr/local/bin/docker", 10);
    files.setExecutable("/usr/local/bin/docker");
    system.processes.answer({"/usr/local/bin/docker", "system", "df", "--format", "{{json .}}"},
                            {0, "{\"Type\":\"Images\",\"Reclaimable\":\"1GB\"}\n"});
    DevFindings found;
    for (std::size_t index = 0; index < devScanners.size(); ++index) {
        found[index] = devScanners[index].scan(scan());
    }
    std::vector<std::pair<std::string, Texts>> sections;
    for (const DevSection& section : assembleDevSections(std::move(found))) {
        sections.emplace_back(section.id, namesOf(section.items));
    }
    EXPECT_THAT(
        sections,
        ElementsAre(Pair("dd", ElementsAre("A")), Pair("sim", ElementsAre("Simulator caches")),
                    Pair("arc", ElementsAre("B")), Pair("pkg", ElementsAre("npm")),
                    Pair("dock", ElementsAre("Unused images"))));
}

}  // namespace
}  // namespace morvane::CleanupScanner
