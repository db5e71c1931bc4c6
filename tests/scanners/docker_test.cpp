#include "scanners/docker.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

const std::vector<std::string> docker{"/usr/local/bin/docker", "system", "df", "--format",
                                      "{{json .}}"};

// One line of what the tool writes.
std::string line(const std::string& type, const std::string& reclaimable) {
    return "{\"Reclaimable\":\"" + reclaimable + "\",\"Type\":\"" + type + "\"}\n";
}

class Docker : public ScannerTest {
protected:
    void install(const Path& path) {
        files.addFile(path, 10);
        files.setExecutable(path);
    }
    // What is found when the tool writes `output`.
    std::vector<CleanupItem> found(std::string output, int status = 0) {
        install(docker[0]);
        system.processes.answer(docker, {status, std::move(output)});
        return scanDocker(scan());
    }
};

CleanupItem item(std::string id, std::string name, std::int64_t bytes, Safety safety,
                 std::string location, std::string lastUsed, std::vector<std::string> arguments) {
    return {.id = std::move(id),
            .name = std::move(name),
            .bytes = bytes,
            .safety = safety,
            .location = std::move(location),
            .explanation = "",
            .lastUsed = std::move(lastUsed),
            .revealURL = std::nullopt,
            .action = CommandAction{"/usr/local/bin/docker", std::move(arguments)}};
}

TEST_F(Docker, OffersWhatItSaysInItsOwnOrder) {
    const auto items = found(
        "{\"Active\":\"1\",\"Reclaimable\":\"1.23GB "
        "(50%)\",\"Size\":\"2GB\",\"Type\":\"Images\"}\n" +
        line("Containers", "12.5MB (100%)") + line("Local Volumes", "2GB") +
        line("Build Cache", "900B"));
    EXPECT_THAT(
        items,
        ElementsAre(
            item("docker:images", "Unused images", 1'230'000'000, Safety::regenerates,
                 "docker image prune -a", "Not used by any container",
                 {"image", "prune", "-a", "-f"}),
            item("docker:containers", "Stopped containers", 12'500'000, Safety::review,
                 "docker container prune", "Stopped", {"container", "prune", "-f"}),
            item("docker:volumes", "Unused volumes", 2'000'000'000, Safety::review,
                 "docker volume prune · may hold database data", "Not used by any container",
                 {"volume", "prune", "-a", "-f"}),
            item("docker:build", "Build cache", 900, Safety::regenerates, "docker builder prune",
                 "Rebuilt when needed", {"builder", "prune", "-f"})));
    EXPECT_THAT(system.processes.runs(), ElementsAre(fakes::FakeProcesses::Run{docker, 15s}));
}

TEST_F(Docker, PassesOverLinesItCannotRead) {
    EXPECT_THAT(
        idsOf(found("\n\nnot json\n[]\n12\n{}\n"
                    "{\"Type\":7,\"Reclaimable\":\"1GB\"}\n"
                    "{\"Reclaimable\":\"1GB\"}\n"
                    "{\"Type\":\"Images\"}\n"
                    "{\"Type\":\"Images\",\"Reclaimable\":5}\n" +
                    line("Images", "N/A") + line("Images", "0B (0%)") + line("Networks", "1GB") +
                    line("images", "1GB") + line("Build Cache", "1.5kB (10%)"))),
        ElementsAre("docker:build"));
}

TEST_F(Docker, RepairsOutputThatIsNotText) {
    EXPECT_THAT(idsOf(found("\xff\xfe\n{\"Type\":\"Images\",\"Note\":\"\xff\","
                            "\"Reclaimable\":\"1GB\"}\n")),
                ElementsAre("docker:images"));
}

TEST_F(Docker, TakesAKindThatIsToldTwiceOnce) {
    const auto items = found(line("Images", "1GB") + line("Images", "2GB"));
    ASSERT_THAT(idsOf(items), ElementsAre("docker:images"));
    EXPECT_EQ(items[0].bytes, 1'000'000'000);
}

TEST_F(Docker, ThatIsStoppedOrMissingOffersNothing) {
    EXPECT_THAT(found(line("Images", "1GB"), 1), IsEmpty());
    files.remove("/usr/local/bin/docker");
    EXPECT_THAT(scanDocker(scan()), IsEmpty());
    install("/usr/bin/docker");
    EXPECT_THAT(scanDocker(scan()), IsEmpty());
    EXPECT_THAT(system.processes.runs(), SizeIs(1));
}

TEST_F(Docker, ThatCannotBeStartedOffersNothing) {
    install("/opt/homebrew/bin/docker");
    EXPECT_THAT(scanDocker(scan()), IsEmpty());
}

TEST_F(Docker, IsLookedForInFourPlacesInOrder) {
    EXPECT_EQ(dockerPath(scan()), std::nullopt);
    install("/Applications/Docker.app/Contents/Resources/bin/docker");
    EXPECT_EQ(dockerPath(scan()), "/Applications/Docker.app/Contents/Resources/bin/docker");
    install(home(".docker/bin/docker"));
    EXPECT_EQ(dockerPath(scan()), "/Users/sam/.docker/bin/docker");
    install("/opt/homebrew/bin/docker");
    EXPECT_EQ(dockerPath(scan()), "/opt/homebrew/bin/docker");
    files.addFile("/usr/local/bin/docker", 10);
    EXPECT_EQ(dockerPath(scan()), "/opt/homebrew/bin/docker");
    files.setExecutable("/usr/local/bin/docker");
    EXPECT_EQ(dockerPath(scan()), "/usr/local/bin/docker");
}

TEST(ParseDockerSize, ReadsDecimalUnits) {
    EXPECT_EQ(parseDockerSize("1.23GB (50%)"), 1'230'000'000);
    EXPECT_EQ(parseDockerSize("0B (0%)"), 0);
    EXPECT_EQ(parseDockerSize("1.5kB (10%)"), 1500);
    EXPECT_EQ(parseDockerSize("2GB"), 2'000'000'000);
    EXPECT_EQ(parseDockerSize("3tb"), 3'000'000'000'000);
    EXPECT_EQ(parseDockerSize("7mb"), 7'000'000);
    EXPECT_EQ(parseDockerSize("12"), 12);
    EXPECT_EQ(parseDockerSize("12 (5%)"), 12);
    EXPECT_EQ(parseDockerSize("12GiB"), 12);
    EXPECT_EQ(parseDockerSize("12PB"), 12);
}

TEST(ParseDockerSize, LosesNoByteToRounding) {
    EXPECT_EQ(parseDockerSize("4.35GB"), 4'350'000'000);
    EXPECT_EQ(parseDockerSize("1.005kB"), 1005);
    EXPECT_EQ(parseDockerSize("0.29MB"), 290'000);
    EXPECT_EQ(parseDockerSize("1.1TB"), 1'100'000'000'000);
}

TEST(ParseDockerSize, CutsToAWholeNumber) {
    EXPECT_EQ(parseDockerSize("1.9B"), 1);
    EXPECT_EQ(parseDockerSize("0.9999kB"), 999);
    EXPECT_EQ(parseDockerSize("0.0001kB"), 0);
    EXPECT_EQ(parseDockerSize("-1.9B"), -1);
}

TEST(ParseDockerSize, ReadsTheExponentDockerWritesAtAThousand) {
    EXPECT_EQ(parseDockerSize("1e+03MB (100%)"), 1'000'000'000);
    EXPECT_EQ(parseDockerSize("5e-1kB"), 500);
    EXPECT_EQ(parseDockerSize("2E3"), 2000);
    EXPECT_EQ(parseDockerSize("2EB"), 2);
    EXPECT_EQ(parseDockerSize("2e"), 2);
    EXPECT_EQ(parseDockerSize("2e+"), 2);
}

TEST(ParseDockerSize, IsAbsentWithoutANumberAtTheStart) {
    for (const char* text : {"", "N/A", "GB", "about 2GB", "(50%)", ".", "-", "+", "-GB", ".GB",
                             "e3", "nan", "inf", "\xff", "٣GB"}) {
        EXPECT_EQ(parseDockerSize(text), std::nullopt) << text;
    }
    EXPECT_EQ(parseDockerSize(".5kB"), 500);
    EXPECT_EQ(parseDockerSize("5.kB"), 5000);
    EXPECT_EQ(parseDockerSize("1.2.3kB"), 1);
}

TEST(ParseDockerSize, IsAbsentForWhatNoDiskHolds) {
    EXPECT_EQ(parseDockerSize("999999999999999999"), 999'999'999'999'999'999);
    EXPECT_EQ(parseDockerSize("1000000000000000000"), std::nullopt);
    EXPECT_EQ(parseDockerSize("99999999TB"), std::nullopt);
    EXPECT_EQ(parseDockerSize("1e999999999999999999999GB"), std::nullopt);
    EXPECT_EQ(parseDockerSize("1e-999999999999999999999GB"), 0);
    EXPECT_EQ(parseDockerSize("0e999999999999999999999GB"), 0);
    EXPECT_EQ(parseDockerSize(std::string(100'000, '9')), std::nullopt);
    EXPECT_EQ(parseDockerSize("0." + std::string(100'000, '0') + "1GB"), 0);
    EXPECT_EQ(parseDockerSize(std::string(100'000, '0') + "1GB"), 1'000'000'000);
}

}  // namespace
}  // namespace morvane::CleanupScanner
