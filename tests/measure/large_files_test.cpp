#include "measure/large_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "measure/disk_tree.h"

namespace morvane {
namespace {

using std::chrono::days;
using test::file;
using test::folder;
using test::link;
using test::package;
using test::TreeMac;
using test::unreadable;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t MB = 1'000'000;
constexpr Instant now{std::chrono::seconds{1'800'000'000}};

TreeMac home(std::vector<test::Item> items) {
    return TreeMac({folder("Users", {folder("sam", std::move(items))})});
}

std::vector<LargeFile> scan(const Platform& platform, const std::filesystem::path& root,
                            const std::vector<std::filesystem::path>& ignored = {}) {
    return scanLargeFiles(platform, root, ignored, now, {});
}

std::vector<std::string> paths(const std::vector<LargeFile>& files) {
    std::vector<std::string> result;
    for (const LargeFile& found : files) result.push_back(found.url.native());
    return result;
}

class RecordingMetadata : public fakes::FakeMetadata {
public:
    mutable std::vector<std::string> asked;

    [[nodiscard]] std::optional<Item> item(const std::filesystem::path& path) const override {
        asked.push_back(path.native());
        return FakeMetadata::item(path);
    }
};

class LargeFiles : public testing::Test {
protected:
    // What a scan of the folder "/d" that holds `items` finds, by path.
    std::vector<std::string> found(std::vector<test::Item> items,
                                   const std::vector<std::filesystem::path>& ignored = {}) {
        const TreeMac mac({folder("d", std::move(items))});
        return paths(scan(mac.platform, "/d", ignored));
    }
};

TEST(LargeFileRoots, AreTheItemsOfTheHomeFolderButForTheSystemsOwn) {
    const TreeMac mac({folder(
        "Users", {folder("sam", {folder("Library", {}), folder("Movies", {}), file("a.iso", 1),
                                 folder("Applications", {}), folder(".ssh", {}),
                                 with(file("b", 1), [](Attributes& it) { it.isHidden = true; }),
                                 folder("library", {})})})});
    EXPECT_THAT(largeFileRoots(mac.platform),
                ElementsAre("/Users/sam/Movies", "/Users/sam/a.iso", "/Users/sam/library"));
}

TEST(LargeFileRoots, AreNoneWhereTheHomeFolderCannotBeListed) {
    const TreeMac mac;
    EXPECT_THAT(largeFileRoots(mac.platform), IsEmpty());
}

TEST_F(LargeFiles, AreFoundFromAHundredMillionBytesOn) {
    EXPECT_THAT(found({file("under.mov", 99'999'999), file("at.mov", 100'000'000)}),
                ElementsAre("/d/at.mov"));
}

TEST_F(LargeFiles, StandInTheOrderOfTheirPaths) {
    EXPECT_THAT(found({file("z.mov", 100 * MB), folder("m", {file("a.mov", 100 * MB)}),
                       file("b.mov", 300 * MB)}),
                ElementsAre("/d/b.mov", "/d/m/a.mov", "/d/z.mov"));
}

TEST_F(LargeFiles, CarryWhatIsKnownOfThem) {
    TreeMac mac({folder("d", {folder("in", {file("a.mov", 123 * MB, now - days{40})})})});
    mac.metadata.items["/d/in/a.mov"] = {.lastUsed = now - days{30}, .added = now - days{50}};
    EXPECT_THAT(scan(mac.platform, "/d"),
                ElementsAre(LargeFile{.url = "/d/in/a.mov",
                                      .bytes = 123 * MB,
                                      .kind = FileKind::video,
                                      .lastUsed = now - days{30},
                                      .since = now - days{30},
                                      .folder = mac.files.identity("/d/in")}));
}

TEST_F(LargeFiles, OfAMovieCopiedHereAndNeverOpenedHaveNoLastUse) {
    TreeMac mac({folder("d", {with(file("a.mov", 100 * MB, now - days{800}),
                                   [](Attributes& it) { it.created = now - days{900}; })})});
    mac.metadata.items["/d/a.mov"] = {.lastUsed = std::nullopt, .added = now - days{365}};
    const std::vector<LargeFile> files = scan(mac.platform, "/d");
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].lastUsed, std::nullopt);
    EXPECT_EQ(files[0].since, now - days{365});
    EXPECT_EQ(ageInMonths(files[0], now), 12);
}

TEST_F(LargeFiles, TakeTheirArrivalFromTheFirstThatKnowsIt) {
    TreeMac mac({folder("d", {with(file("a.mov", 100 * MB, now - days{800}),
                                   [](Attributes& it) { it.created = now - days{700}; })})});
    mac.metadata.items["/d/a.mov"] = {};
    const auto since = [&mac] { return scan(mac.platform, "/d").at(0).since; };
    EXPECT_EQ(since(), now - days{700});
    mac.metadata.createdDates["/d/a.mov"] = now - days{600};
    EXPECT_EQ(since(), now - days{600});
    mac.metadata.addedDates["/d/a.mov"] = now - days{500};
    EXPECT_EQ(since(), now - days{500});
    mac.metadata.items["/d/a.mov"].added = now - days{400};
    EXPECT_EQ(since(), now - days{400});
}

TEST_F(LargeFiles, WithADateToComeAreOfAgeZero) {
    TreeMac mac({folder("d", {file("a.mov", 100 * MB, now + days{30})})});
    const std::vector<LargeFile> files = scan(mac.platform, "/d");
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files[0].since, now);
    EXPECT_EQ(ageInMonths(files[0], now), 0);
}

TEST_F(LargeFiles, AskTheMetadataStoreForNothingBelowTheFloor) {
    TreeMac mac({folder("d", {file("small.mov", 99'999'999), file("large.mov", 100 * MB),
                              file("part.dylib", 100 * MB), link("l", 100 * MB),
                              package("small.key", {file("x", MB)})})});
    RecordingMetadata metadata;
    Platform platform{
        mac.files, mac.processes,    mac.workspace, metadata, mac.notifications, mac.volume, {},
        {},        mac.platform.home};
    scan(platform, "/d");
    EXPECT_THAT(metadata.asked, ElementsAre("/d/large.mov"));
}

TEST_F(LargeFiles, InALibraryFolderOfAProjectAreFound) {
    EXPECT_THAT(found({folder("Library", {file("a.mov", 100 * MB)})}),
                ElementsAre("/d/Library/a.mov"));
}

TEST_F(LargeFiles, BelowBuildOutputAndDependenciesStayHidden) {
    EXPECT_THAT(found({folder("build", {folder("in", {file("a.mov", 100 * MB)})}),
                       folder("target", {file("a.mov", 100 * MB)}),
                       folder("X.framework", {file("a.mov", 100 * MB)}),
                       folder("Build", {file("a.mov", 100 * MB)})}),
                ElementsAre("/d/Build/a.mov"));
}

TEST_F(LargeFiles, NamedLikeAFolderNeverEnteredAreFoundAllTheSame) {
    EXPECT_THAT(found({file("build", 100 * MB)}), ElementsAre("/d/build"));
}

TEST_F(LargeFiles, AreNeverAppsNorPackagesThatAreNoDocuments) {
    EXPECT_THAT(found({package("Big.app", {file("x.mov", 900 * MB)}),
                       package("Trip.photoslibrary", {file("x.mov", 900 * MB)})}),
                IsEmpty());
}

TEST_F(LargeFiles, CountADocumentBundleAsOneOfAllItHolds) {
    constexpr Instant old = now - days{400};
    TreeMac mac({folder(
        "d", {package("Film.fcpbundle",
                      {file("a", 60 * MB, old),
                       folder("in", {file(".b", 40 * MB, now - days{90}), link("l", 900 * MB),
                                     package("X.app", {file("c", MB, old)})})}),
              package("Small.fcpbundle", {file("a", 99'999'999), link("l", MB)})})});
    EXPECT_THAT(scan(mac.platform, "/d"),
                ElementsAre(LargeFile{.url = "/d/Film.fcpbundle",
                                      .bytes = 101 * MB,
                                      .kind = FileKind::video,
                                      .lastUsed = now - days{90},
                                      .since = now - days{90},
                                      .folder = mac.files.identity("/d")}));
}

TEST_F(LargeFiles, OfABundleNeverTouchedCountFromTheFoldersOwnCreation) {
    TreeMac mac({folder("d", {with(package("Talk.key", {file("a", 100 * MB, now - days{800})}),
                                   [](Attributes& it) { it.created = now - days{200}; })})});
    mac.metadata.items["/d/Talk.key"] = {};
    EXPECT_EQ(scan(mac.platform, "/d").at(0).since, now - days{200});
}

TEST_F(LargeFiles, AreNeitherHiddenNorInHiddenFolders) {
    const auto hide = [](Attributes& it) { it.isHidden = true; };
    EXPECT_THAT(found({file(".a.mov", 100 * MB), folder(".b", {file("a.mov", 100 * MB)}),
                       with(file("c.mov", 100 * MB), hide),
                       with(folder("e", {file("a.mov", 100 * MB)}), hide),
                       with(package("f.key", {file("x", 100 * MB)}), hide)}),
                IsEmpty());
}

TEST_F(LargeFiles, AreNeitherLinksNorAliasesNorPartsOfPrograms) {
    EXPECT_THAT(
        found({link("l.mov", 100 * MB),
               with(file("alias.mov", 100 * MB), [](Attributes& it) { it.isAlias = true; }),
               with(file("clang", 100 * MB), [](Attributes& it) { it.isExecutable = true; }),
               with(file("pipe", 100 * MB), [](Attributes& it) { it.kind = EntryKind::other; }),
               file("a.pack", 100 * MB), file("data", 100 * MB)}),
        ElementsAre("/d/data"));
}

TEST_F(LargeFiles, InsideAnIgnoredFolderAreLeftOutWithAllBelow) {
    EXPECT_THAT(found({folder("Foo", {folder("in", {file("a.mov", 100 * MB)})}),
                       folder("Foobar", {file("a.mov", 100 * MB)}),
                       folder("x", {folder("Foo", {file("a.mov", 100 * MB)}),
                                    folder("y", {file("b.mov", 100 * MB)})}),
                       package("P.key", {file("x", 100 * MB)}), file("f.mov", 100 * MB)},
                      {"/d/Foo/", "/d/x/./y", "/d/P.key", "/d/f.mov", "/elsewhere"}),
                ElementsAre("/d/Foobar/a.mov", "/d/x/Foo/a.mov"));
}

TEST_F(LargeFiles, OfAnIgnoredRootAreNone) {
    EXPECT_THAT(found({file("a.mov", 100 * MB)}, {"/d"}), IsEmpty());
    EXPECT_THAT(found({file("a.mov", 100 * MB)}, {"/"}), IsEmpty());
}

TEST_F(LargeFiles, MayBeTheRootItself) {
    TreeMac mac = home({file("a.iso", 100 * MB, now - days{60}),
                        with(package("B.utm", {file("x", 200 * MB, now - days{90})}),
                             [](Attributes& it) { it.created = now - days{99}; }),
                        package("C.app", {file("x", 200 * MB)}), link("d.iso", 100 * MB),
                        with(file("e", 100 * MB), [](Attributes& it) { it.isExecutable = true; }),
                        with(file("f", 100 * MB), [](Attributes& it) { it.isAlias = true; }),
                        file("g.iso", MB)});
    EXPECT_THAT(scan(mac.platform, "/Users/sam/a.iso"),
                ElementsAre(LargeFile{.url = "/Users/sam/a.iso",
                                      .bytes = 100 * MB,
                                      .kind = FileKind::diskImage,
                                      .lastUsed = now - days{60},
                                      .since = now - days{60},
                                      .folder = mac.files.identity("/Users/sam")}));
    EXPECT_THAT(scan(mac.platform, "/Users/sam/B.utm"),
                ElementsAre(LargeFile{.url = "/Users/sam/B.utm",
                                      .bytes = 200 * MB,
                                      .kind = FileKind::diskImage,
                                      .lastUsed = now - days{90},
                                      .since = now - days{90},
                                      .folder = mac.files.identity("/Users/sam")}));
    for (const char* name : {"C.app", "d.iso", "e", "f", "g.iso", "gone"}) {
        EXPECT_THAT(scan(mac.platform, std::filesystem::path("/Users/sam") / name), IsEmpty())
            << name;
    }
}

TEST_F(LargeFiles, BehindAnUnreadableFolderArePassedOver) {
    EXPECT_THAT(
        found({unreadable(folder("a", {file("x.mov", 100 * MB)})), file("b.mov", 100 * MB)}),
        ElementsAre("/d/b.mov"));
}

TEST_F(LargeFiles, FoundBeforeACancellationAreGivenBack) {
    TreeMac mac({folder(
        "d", {folder("a", {file("x.mov", 100 * MB)}), folder("b", {file("y.mov", 100 * MB)})})});
    const StopSource stop;
    mac.files.watch([&stop](std::string_view, const std::filesystem::path& path) {
        if (path == "/d/b") stop.request_stop();
    });
    EXPECT_THAT(paths(scanLargeFiles(mac.platform, "/d", {}, now, stop.get_token())),
                ElementsAre("/d/a/x.mov"));
}

std::vector<std::string> filtered(double minMB, std::int64_t minMonths,
                                  std::optional<FileKind> kind) {
    const std::vector<LargeFile> files{
        {.url = "a", .bytes = 100 * MB, .kind = FileKind::video, .since = now - days{29}},
        {.url = "b", .bytes = 500 * MB, .kind = FileKind::other, .since = now - days{30}},
        {.url = "c", .bytes = 499'999'999, .kind = FileKind::video, .since = now - days{360}},
        {.url = "d", .bytes = 500 * MB, .kind = FileKind::video, .since = now},
        {.url = "e", .bytes = 900 * MB, .kind = FileKind::audio, .since = now - days{31}}};
    return paths(filteredFiles(files, minMB, minMonths, kind, now));
}

TEST(FilteredFiles, AreThoseOfTheSizeTheAgeAndTheKindLargestFirst) {
    EXPECT_THAT(filtered(500, 0, std::nullopt), ElementsAre("e", "b", "d"));
    EXPECT_THAT(filtered(0, 0, std::nullopt), ElementsAre("e", "b", "d", "c", "a"));
    EXPECT_THAT(filtered(0, 1, std::nullopt), ElementsAre("e", "b", "c"));
    EXPECT_THAT(filtered(0, 12, std::nullopt), ElementsAre("c"));
    EXPECT_THAT(filtered(0, 0, FileKind::video), ElementsAre("d", "c", "a"));
    EXPECT_THAT(filtered(500, 1, FileKind::document), IsEmpty());
}

}  // namespace
}  // namespace morvane
