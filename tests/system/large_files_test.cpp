// Large and old files: what is found, how old it is, and taking what was picked.

#include <gmock/gmock.h>

#include "system/system_test.h"

namespace morvane::test {
namespace {

class LargeFiles : public BigFilesTest {
protected:
    static inline const std::string home = "/Users/sam/";
    static constexpr std::int64_t above = 100'000'001;

    void find() { driver().call("scanFiles", {{"force", true}}); }
    Json found() { return sorted(all(driver().get("files"), "url")); }
    Json file(const std::string& path) { return with(driver().get("files"), home + path, "url"); }
    static Json homePaths(const std::vector<std::string>& names) {
        Json list = Json::array();
        for (const std::string& name : names) list.push_back(home + name);
        return sorted(list);
    }
};

TEST_F(LargeFiles, AreThoseOfAHundredMegabytesOutsideFoldersThatAreNotTheUsers) {
    disk.file(home + "big.bin", above);
    disk.file(home + "Movies/below.bin", 99'999'744);
    disk.file(home + "Project/Library/kept.bin", above);
    for (const std::string folder :
         {"Library/", "Applications/", ".hidden/", "Project/node_modules/", "Project/target/",
          "Project/build/", "Project/.git/", "Project/A.framework/", "Project/A.xcarchive/",
          "Project/A.app/", "Movies/Photos.photoslibrary/"}) {
        disk.file(home + folder + "data.bin", above);
    }
    disk.file(home + "Project/Build/capital.bin", above);
    disk.file(home + "Project/lib.dylib", above);
    disk.file(home + "Project/pack.idx", above);
    disk.link(home + "linked.bin", home + "big.bin");
    disk.file(home + "alias.bin", above);
    disk.host["aliases"] = {home + "alias.bin"};
    find();
    EXPECT_EQ(found(),
              homePaths({"big.bin", "Project/Library/kept.bin", "Project/Build/capital.bin"}));
}

TEST_F(LargeFiles, AnExecutableIsNotOne) {
    disk.file(home + "program", above);
    std::filesystem::permissions(disk.real(home + "program"), std::filesystem::perms(0755));
    disk.file(home + "data", above);
    find();
    EXPECT_EQ(found(), homePaths({"data"}));
}

TEST_F(LargeFiles, DocumentBundlesAreOneFile) {
    disk.file(home + "Movies/Film.FCPBUNDLE/media/a.mov", above, 50);
    disk.file(home + "Movies/Film.FCPBUNDLE/media/b.mov", 4096, 40);
    disk.file(home + "Machine.utm/disk.qcow2", above, 60);
    find();
    EXPECT_EQ(found(), homePaths({"Movies/Film.FCPBUNDLE", "Machine.utm"}));
    EXPECT_EQ(file("Movies/Film.FCPBUNDLE").at("kind"), "video");
    EXPECT_EQ(file("Movies/Film.FCPBUNDLE").at("lastUsed"), "2026-05-06T12:00:00.000Z");
    EXPECT_GT(file("Movies/Film.FCPBUNDLE").at("bytes"), above + 4095);
    EXPECT_EQ(file("Machine.utm").at("kind"), "diskImage");
}

TEST_F(LargeFiles, AreOfTheKindTheirNameTells) {
    const std::vector<std::pair<std::string, std::string>> kinds{
        {"a.mov", "video"},   {"a.DMG", "diskImage"}, {"a.zip", "archive"},
        {"a.pkg", "archive"}, {"a.wav", "audio"},     {"a.pdf", "document"},
        {"a.xyz", "other"},   {"a", "other"},         {"a.ipsw", "diskImage"}};
    for (const auto& [name, kind] : kinds) disk.file(home + name, above);
    find();
    for (const auto& [name, kind] : kinds) EXPECT_EQ(file(name).at("kind"), kind) << name;
}

TEST_F(LargeFiles, AreAsOldAsTheirLastUse) {
    for (const std::string name : {"opened", "unopened", "touched", "unknown", "dated", "made"}) {
        disk.file(home + name, above, 400);
    }
    disk.file(home + "future", above, -5);
    disk.host["metadata"] = {{home + "opened", {{"lastUsed", "2026-05-16T12:00:00Z"}}},
                             {home + "unopened", {{"added", "2025-07-01T00:00:00Z"}}},
                             // Changed two minutes after it was added.
                             {home + "touched", {{"added", "2025-05-11T11:58:00Z"}}},
                             {home + "dated", Json::object()},
                             {home + "made", Json::object()}};
    disk.host["dates"] = {
        {home + "dated", {{"added", "2025-08-01T00:00:00Z"}, {"created", "2020-01-01T00:00:00Z"}}},
        {home + "made", {{"created", "2025-05-12T00:00:00Z"}}}};
    find();
    const auto dates = [&](const std::string& name) {
        return Json::array({file(name).at("lastUsed"), file(name).at("since")});
    };
    const Json modified = "2025-05-11T12:00:00.000Z";
    const Json now = "2026-06-15T12:00:00.000Z";
    EXPECT_EQ(dates("opened"),
              Json::array({"2026-05-16T12:00:00.000Z", "2026-05-16T12:00:00.000Z"}));
    EXPECT_EQ(dates("unopened"), Json::array({nullptr, "2025-07-01T00:00:00.000Z"}));
    EXPECT_EQ(dates("touched"), Json::array({modified, modified}));
    EXPECT_EQ(dates("unknown"), Json::array({modified, modified}));
    EXPECT_EQ(dates("dated"), Json::array({nullptr, "2025-08-01T00:00:00.000Z"}));
    EXPECT_EQ(dates("made"), Json::array({nullptr, "2025-05-12T00:00:00.000Z"}));
    EXPECT_EQ(dates("future"), Json::array({now, now}));
}

TEST_F(LargeFiles, AreFilteredWithoutAnotherWalk) {
    disk.file(home + "a.mov", 600'000'000, 29.99);
    disk.file(home + "b.mov", 700'000'000, 360);
    disk.file(home + "c.zip", 200'000'000, 360);
    find();
    const auto shown = [&] { return all(driver().get("filteredFiles"), "url"); };
    EXPECT_EQ(shown(), Json::array({home + "b.mov", home + "a.mov"}));
    driver().set({{"fileMinMB", 100.0}});
    EXPECT_EQ(shown(), Json::array({home + "b.mov", home + "a.mov", home + "c.zip"}));
    driver().set({{"fileMinMonths", 12}});
    EXPECT_EQ(shown(), Json::array({home + "b.mov", home + "c.zip"}));
    driver().set({{"fileKind", "archive"}});
    EXPECT_EQ(shown(), Json::array({home + "c.zip"}));
    driver().set({{"fileMinMonths", 13}});
    EXPECT_EQ(shown(), Json::array());
}

TEST_F(LargeFiles, GoWhenTheyArePickedAndShown) {
    disk.file(home + "a.mov", 600'000'000);
    disk.file(home + "b.mov", 700'000'000);
    disk.file(home + "hidden.mov", 200'000'000);
    find();
    driver().call("trashSelectedFiles");
    EXPECT_EQ(driver().get("fileResult"), nullptr);
    driver().set({{"fileSelection", {home + "a.mov", home + "hidden.mov", "/gone"}}});
    EXPECT_EQ(all(driver().get("selectedFiles"), "url"), Json::array({home + "a.mov"}));
    driver().call("trashSelectedFiles");
    EXPECT_EQ(driver().get("fileResult").at("removed").at("count"), 1);
    EXPECT_NEAR(driver().get("fileResult").at("removed").at("mb"), 600, 0.01);
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "a.mov · 600 MB");
    EXPECT_EQ(driver().get("fileSelection"), Json::array({home + "hidden.mov", "/gone"}));
    EXPECT_EQ(found(), homePaths({"b.mov", "hidden.mov"}));
    EXPECT_TRUE(disk.has("/Users/sam/.Trash/a.mov"));
    driver().set({{"fileMinMB", 0.0}, {"fileSelection", {home + "b.mov", home + "hidden.mov"}}});
    driver().call("trashSelectedFiles");
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "2 large files · 900 MB");
}

TEST_F(LargeFiles, ThatStayAreToldInWords) {
    disk.file(home + "a.mov", 600'000'000);
    disk.file(home + "b.mov", 700'000'000);
    disk.host["immovable"] = {home + "a.mov"};
    find();
    driver().set({{"fileSelection", {home + "a.mov", home + "b.mov"}}});
    driver().call("trashSelectedFiles");
    EXPECT_EQ(driver().get("fileResult"),
              Json({{"failed", "Moved 1 of 2 files. The rest couldn’t be removed."}}));
    EXPECT_EQ(driver().get("fileSelection"), Json::array({home + "a.mov"}));
    driver().call("trashSelectedFiles");
    EXPECT_THAT(driver().get("fileResult").at("failed").get<std::string>(),
                testing::StartsWith("Couldn’t move a.mov to the Trash. "));
    driver().set({{"alwaysUseTrash", false}});
    driver().call("trashSelectedFiles");
    EXPECT_THAT(driver().get("fileResult").at("failed").get<std::string>(),
                testing::StartsWith("Couldn’t delete a.mov. "));
    EXPECT_TRUE(disk.has(home + "a.mov"));
}

TEST_F(LargeFiles, AreNotWalkedAgainWithinFiveMinutes) {
    find();
    disk.file(home + "a.mov", above);
    driver().advance(299.9);
    driver().call("scanFiles", {{"force", false}});
    EXPECT_EQ(found(), Json::array());
    driver().advance(0.1);
    driver().call("scanFiles", {{"force", false}});
    EXPECT_EQ(found(), homePaths({"a.mov"}));
}

TEST_F(LargeFiles, OfAnIgnoredFolderAreNeverSeen) {
    disk.file(home + "Keep/a.mov", above);
    disk.file(home + "Keeper/b.mov", above);
    disk.file(home + "Movies/Keep/c.mov", above);
    disk.host["openPanel"] = {home + "Keep", home + "Movies/Keep"};
    find();
    EXPECT_EQ(found().size(), 3U);
    driver().set({{"fileSelection", {home + "Keep/a.mov", home + "Keeper/b.mov"}}});
    driver().call("addIgnoredFolders");
    EXPECT_EQ(found(), homePaths({"Keeper/b.mov"}));
    EXPECT_EQ(driver().get("fileSelection"), homePaths({"Keeper/b.mov"}));
    find();
    EXPECT_EQ(found(), homePaths({"Keeper/b.mov"}));
    driver().call("removeIgnoredFolder", {{"path", home + "Keep"}});
    EXPECT_EQ(driver().get("filesScannedAt"), nullptr);
    driver().call("scanFiles", {{"force", false}});
    EXPECT_EQ(found(), homePaths({"Keep/a.mov", "Keeper/b.mov"}));
}

}  // namespace
}  // namespace morvane::test
