// What developer tools leave behind: Xcode, runtimes, archives, package caches, Docker.

#include "system/system_test.h"

namespace morvane::test {
namespace {

class Developer : public SystemTest {
protected:
    static inline const std::string xcode = "/Users/sam/Library/Developer/Xcode/";

    void scanDeveloper() { driver().call("scanDeveloper"); }
    Json item(const std::string& id) { return with(driver().get("devItems"), id); }
    void runtimes(const std::string& json) {
        disk.makeFolder("/Applications/Xcode-beta.app");
        disk.text("/runtimes.json", json);
        disk.tool(
            "/usr/bin/xcrun",
            R"([ "$*" = "simctl runtime list -j" ] && cat "$MORVANE_DISK/root/runtimes.json")");
    }
    void docker(const std::string& lines, const std::string& path = "/usr/local/bin/docker") {
        disk.text("/docker.json", lines);
        disk.tool(path, R"([ "$1" = system ] && cat "$MORVANE_DISK/root/docker.json")");
    }
};

TEST_F(Developer, SectionsStandInTheirOrderAndEmptyOnesAreLeftOut) {
    disk.file(xcode + "Archives/day/A.xcarchive/data", 4096);
    disk.file(xcode + "DerivedData/App/data", 2'000'000);
    disk.file("/Users/sam/.npm/_cacache/data", 4096);
    scanDeveloper();
    EXPECT_EQ(all(driver().get("devSections"), "id"), Json::array({"dd", "arc", "pkg"}));
    EXPECT_EQ(all(driver().get("devSections"), "name"),
              Json::array({"Xcode DerivedData", "Archives", "Package caches"}));
    EXPECT_EQ(all(driver().get("devSections"), "icon"),
              Json::array({"hammer", "archivebox", "shippingbox"}));
    EXPECT_EQ(driver().get("devSections").at(0).at("subtitle"),
              "Build files Xcode recreates the next time you build.");
}

TEST_F(Developer, BuildsLoseTheirHashAndAreCheckedForToday) {
    const std::string data = xcode + "DerivedData/";
    disk.file(data + "MyApp-abcdefghijklmnopqrstuvwxyzab/data", 2'000'000, 23.0 / 24);
    disk.file(data + "My-App/data", 1'500'000, 1);
    disk.file(data + "ModuleCache.noindex/data", 1'200'000);
    disk.file(data + "Index.noindex/data", 1'100'000);
    disk.file(data + "Small/data", 999'424);
    scanDeveloper();
    const Json items = driver().get("devItems");
    EXPECT_EQ(all(items, "name"), Json::array({"MyApp", "My-App", "Module cache", "Index"}));
    EXPECT_EQ(all(items, "safety"),
              Json::array({"review", "regenerates", "regenerates", "regenerates"}));
    EXPECT_EQ(all(items, "lastUsed"), Json::array({"Built today", "Used yesterday",
                                                   "Used 3 months ago", "Used 3 months ago"}));
}

TEST_F(Developer, TheNewestRuntimeOfAPlatformIsForReview) {
    runtimes(
        R"({"a":{"identifier":"i9","sizeBytes":900,"version":"17.9","platformIdentifier":"com.apple.platform.iphonesimulator"},
        "b":{"identifier":"i10","sizeBytes":800,"version":"17.10","platformIdentifier":"com.apple.platform.iphonesimulator","deletable":true},
        "c":{"identifier":"i11","sizeBytes":700,"version":"18.0","platformIdentifier":"com.apple.platform.iphonesimulator","deletable":false},
        "d":{"identifier":"w1","sizeBytes":600.0,"platformIdentifier":"com.apple.platform.watchsimulator"},
        "e":{"identifier":"x1","sizeBytes":500,"version":"1"},
        "f":{"sizeBytes":400},"g":{"identifier":5,"sizeBytes":1},"h":{"identifier":"z","sizeBytes":0},
        "i":{"identifier":"s","sizeBytes":"300"},"j":{"identifier":"t","sizeBytes":300,"deletable":"no"}})");
    scanDeveloper();
    const Json items = driver().get("devItems");
    EXPECT_EQ(item("rt:i9").at("safety"), "safe");
    EXPECT_EQ(item("rt:i9").at("lastUsed"), "Older version");
    EXPECT_EQ(item("rt:i10").at("safety"), "review");
    EXPECT_EQ(item("rt:i10").at("lastUsed"), "Newest iOS");
    EXPECT_EQ(item("rt:i10").at("name"), "iOS 17.10 runtime");
    EXPECT_EQ(item("rt:i11"), nullptr);
    EXPECT_EQ(item("rt:w1").at("name"), "watchOS  runtime");
    EXPECT_EQ(item("rt:w1").at("safety"), "review");
    EXPECT_EQ(item("rt:x1").at("name"), "Simulator 1 runtime");
    EXPECT_EQ(item("rt:i9").at("revealURL"), nullptr);
    EXPECT_EQ(item("rt:i9").at("action"), Json::parse(R"({"command":{"executable":"/usr/bin/xcrun",
                              "arguments":["simctl","runtime","delete","i9"]}})"));
    for (const std::string id : {"rt:z", "rt:s"}) EXPECT_EQ(item(id), nullptr);
}

TEST_F(Developer, RuntimesAreNotAskedForWithoutXcode) {
    runtimes(R"({"a":{"identifier":"i9","sizeBytes":900}})");
    disk.remove("/Applications/Xcode-beta.app");
    disk.makeFolder("/Applications/Xcodes");
    disk.file(xcode + "iOS DeviceSupport/17.0/Symbols/data", 4096);
    scanDeveloper();
    EXPECT_EQ(driver().effects("run"), Json::array());
    EXPECT_EQ(all(driver().get("devItems"), "name"), Json::array({"iOS 17.0 device support"}));
}

TEST_F(Developer, RuntimesOfAnotherShapeAreNone) {
    for (const std::string output :
         {"", "[]", "{", "{\"a\":[]}", "{\"a\":{\"identifier\":\"x\",\"sizeBytes\":1}} trailing",
          "\xff", "{\"a\":null,\"b\":5}"}) {
        runtimes(output);
        scanDeveloper();
        EXPECT_EQ(driver().get("devItems"), Json::array()) << output;
    }
    std::string deep;
    for (int level = 0; level < 100'000; ++level) deep += "{\"a\":";
    runtimes(deep);
    scanDeveloper();
    EXPECT_EQ(driver().get("devItems"), Json::array());
    runtimes(R"({"a":{"identifier":"i9","sizeBytes":900}})");
    disk.tool("/usr/bin/xcrun", R"(cat "$MORVANE_DISK/root/runtimes.json"; exit 1)");
    scanDeveloper();
    EXPECT_EQ(driver().get("devItems"), Json::array());
}

TEST_F(Developer, ASimulatorCacheKeepsItsFolder) {
    const std::string caches = "/Users/sam/Library/Developer/CoreSimulator/Caches";
    disk.file(caches + "/dyld/data", 8192, 8);
    disk.text(caches + "/empty", "");
    disk.file(caches + "/.hidden", 4096);
    scanDeveloper();
    EXPECT_EQ(item("simcache").at("bytes"), 12288);
    EXPECT_EQ(sorted(pathsOf(item("simcache"))),
              Json::array({caches + "/dyld", caches + "/empty"}));
    EXPECT_EQ(item("simcache").at("lastUsed"), "Used last week");
    driver().call("sweep", {{"items", {"simcache"}}, {"label", "Developer sweep"}});
    EXPECT_EQ(disk.names(caches), std::vector<std::string>{".hidden"});
    EXPECT_EQ(driver().get("history").at(0).at("summary"), "Developer sweep · 8 KB");
}

TEST_F(Developer, ArchivesAreNamedByTheirList) {
    const auto archive = [&](const std::string& name, const std::string& body) {
        disk.file(xcode + "Archives/day/" + name + ".xcarchive/data", 4096);
        disk.propertyList(xcode + "Archives/day/" + name + ".xcarchive/Info.plist", body);
    };
    archive("A",
            "<dict><key>Name</key><string>Ledger</string>"
            "<key>CreationDate</key><date>2026-06-13T12:00:00Z</date>"
            "<key>ApplicationProperties</key><dict>"
            "<key>CFBundleShortVersionString</key><string>2.1</string>"
            "<key>CFBundleVersion</key><string>77</string></dict></dict>");
    archive("B",
            "<dict><key>Name</key><string>Tide</string><key>ApplicationProperties</key>"
            "<dict><key>CFBundleVersion</key><string>78</string></dict></dict>");
    archive("C", "<array><string>Name</string></array>");
    disk.file(xcode + "Archives/day/D.XCARCHIVE/data", 4096);
    disk.file(xcode + "Archives/E.xcarchive/data", 4096);
    scanDeveloper();
    const Json items = driver().get("devItems");
    EXPECT_EQ(sorted(all(items, "name")), Json::array({"C", "Ledger 2.1 (77)", "Tide"}));
    const Json ledger = with(items, "Ledger 2.1 (77)", "name");
    EXPECT_EQ(ledger.at("lastUsed"), "Made 2 days ago");
    EXPECT_EQ(ledger.at("safety"), "review");
    EXPECT_EQ(with(items, "Tide", "name").at("lastUsed"), "");
}

TEST_F(Developer, BothPackageCachesOfOneNameAreTold) {
    disk.file("/Users/sam/Library/pnpm/store/data", 8192);
    disk.file("/Users/sam/Library/Caches/pnpm/data", 4096);
    disk.file("/Users/sam/Library/Caches/Homebrew/data", 40960);
    disk.makeFolder("/Users/sam/.m2/repository");
    scanDeveloper();
    EXPECT_EQ(all(driver().get("devItems"), "id"),
              Json::array({"pkg:Library/Caches/Homebrew", "pkg:Library/pnpm/store",
                           "pkg:Library/Caches/pnpm"}));
    EXPECT_EQ(all(driver().get("devItems"), "name"), Json::array({"Homebrew", "pnpm", "pnpm"}));
    EXPECT_EQ(item("pkg:Library/pnpm/store").at("location"), "~/Library/pnpm/store");
}

TEST_F(Developer, DockerIsReadLineByLine) {
    docker(R"json({"Type":"Build Cache","Reclaimable":"1.5kB (10%)"}
{"Type":"Images","Reclaimable":"2GB"}

not json
[1]
{"Type":5,"Reclaimable":"1GB"}
{"Type":"Containers","Reclaimable":"0B (0%)"}
{"Type":"Local Volumes","Reclaimable":"much"}
{"Type":"Local Volumes","Reclaimable":7}
{"Type":"Local Volumes","Reclaimable":"12.5MB (3%)","Extra":{}}
{"Type":"Networks","Reclaimable":"1GB"}
)json",
           "/Applications/Docker.app/Contents/Resources/bin/docker");
    scanDeveloper();
    EXPECT_EQ(all(driver().get("devItems"), "id"),
              Json::array({"docker:build", "docker:images", "docker:volumes"}));
    EXPECT_EQ(all(driver().get("devItems"), "bytes"),
              Json::array({1500, 2'000'000'000, 12'500'000}));
    EXPECT_EQ(all(driver().get("devItems"), "safety"),
              Json::array({"regenerates", "regenerates", "review"}));
    EXPECT_EQ(item("docker:volumes").at("action"), Json::parse(R"({"command":{
                  "executable":"/Applications/Docker.app/Contents/Resources/bin/docker",
                  "arguments":["volume","prune","-a","-f"]}})"));
}

TEST_F(Developer, OfSeveralDockersTheFirstThatCanRunIsAsked) {
    docker("{\"Type\":\"Images\",\"Reclaimable\":\"2GB\"}", "/Users/sam/.docker/bin/docker");
    disk.text("/usr/local/bin/docker", "#!/bin/sh\n");
    scanDeveloper();
    EXPECT_EQ(item("docker:images").at("action").at("command").at("executable"),
              "/Users/sam/.docker/bin/docker");
}

TEST_F(Developer, AStoppedDockerHasNoSection) {
    docker("{\"Type\":\"Images\",\"Reclaimable\":\"2GB\"}");
    disk.tool("/usr/local/bin/docker", R"(cat "$MORVANE_DISK/root/docker.json"; exit 1)");
    scanDeveloper();
    EXPECT_EQ(driver().get("devSections"), Json::array());
}

}  // namespace
}  // namespace morvane::test
