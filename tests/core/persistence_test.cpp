#include <chrono>

#include "core/store_test.h"

namespace morvane {
namespace {

using Persistence = StoreTest;
using Write = MemoryDefaults::Write;
using Data = MemoryDefaults::Data;

constexpr auto entryJSON =
    R"([{"id":"6F9619FF-8B86-4D01-B42D-00CF4FC964FF","date":800000000.5,"summary":"2 items · 1 MB",)"
    R"("trashed":{"/a":"/Users/sam/.Trash/a"},"restored":false}])";

TEST_F(Persistence, OfAFirstStartGivesTheDefaults) {
    start();
    EXPECT_FALSE(*state->hasOnboarded);
    EXPECT_EQ(*state->onboardingStep, OnboardingStep::welcome);
    EXPECT_EQ(*state->lastSweptAt, std::nullopt);
    EXPECT_EQ(*state->schedule, ScanSchedule::weekly);
    EXPECT_TRUE(*state->remindWhenReady);
    EXPECT_TRUE(*state->showInMenuBar);
    EXPECT_TRUE(*state->alwaysUseTrash);
    EXPECT_EQ(*state->lastScanAt, std::nullopt);
    EXPECT_EQ(*state->remindedAt, std::nullopt);
    EXPECT_THAT(*state->ignoredFolders, IsEmpty());
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_EQ(*state->disk, DiskUsage{});
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Persistence, ReadsEveryKey) {
    const Instant date = system.now - 48h;
    defaults.stored = {{"hasOnboarded", true},
                       {"onboardingStep", std::string("notifications")},
                       {"lastSweptAt", date},
                       {"scanSchedule", std::string("Monthly")},
                       {"remindWhenReady", false},
                       {"showInMenuBar", false},
                       {"alwaysUseTrash", false},
                       {"lastScanAt", date + 1h},
                       {"remindedAt", date + 2h},
                       {"ignoredFolders", Texts{"/b", "/a"}},
                       {"sweepHistory", Data{entryJSON}}};
    start();
    EXPECT_TRUE(*state->hasOnboarded);
    EXPECT_EQ(*state->onboardingStep, OnboardingStep::notifications);
    EXPECT_EQ(*state->lastSweptAt, date);
    EXPECT_EQ(*state->schedule, ScanSchedule::monthly);
    EXPECT_FALSE(*state->remindWhenReady);
    EXPECT_FALSE(*state->showInMenuBar);
    EXPECT_FALSE(*state->alwaysUseTrash);
    EXPECT_EQ(*state->lastScanAt, date + 1h);
    EXPECT_EQ(*state->remindedAt, date + 2h);
    EXPECT_THAT(*state->ignoredFolders, ElementsAre("/b", "/a"));
    ASSERT_THAT(*state->history, SizeIs(1));
    const HistoryEntry& entry = state->history->front();
    EXPECT_EQ(entry.id, "6F9619FF-8B86-4D01-B42D-00CF4FC964FF");
    EXPECT_EQ(entry.date, Instant(std::chrono::seconds(1'778'307'200)) + 500ms);
    EXPECT_EQ(entry.summary, "2 items · 1 MB");
    EXPECT_THAT(entry.trashed, ElementsAre(Pair("/a", "/Users/sam/.Trash/a")));
    EXPECT_FALSE(entry.restored);
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Persistence, TakesAScheduleByItsExactWords) {
    const std::pair<std::string, ScanSchedule> cases[] = {
        {"Off", ScanSchedule::off},         {"Weekly", ScanSchedule::weekly},
        {"Monthly", ScanSchedule::monthly}, {"off", ScanSchedule::weekly},
        {"weekly", ScanSchedule::weekly},   {"monthly", ScanSchedule::weekly},
        {"", ScanSchedule::weekly},         {"Daily", ScanSchedule::weekly}};
    for (const auto& [text, schedule] : cases) {
        defaults.stored["scanSchedule"] = text;
        const auto one = AppState::create({{loop, pool}, system.platform, remover, defaults});
        EXPECT_EQ(*one->schedule, schedule) << text;
    }
}

TEST_F(Persistence, TakesAStepOfOnboardingByItsExactWords) {
    const std::pair<std::string, OnboardingStep> cases[] = {
        {"welcome", OnboardingStep::welcome},
        {"access", OnboardingStep::access},
        {"notifications", OnboardingStep::notifications},
        {"Access", OnboardingStep::welcome},
        {"done", OnboardingStep::welcome}};
    for (const auto& [text, step] : cases) {
        defaults.stored["onboardingStep"] = text;
        const auto one = AppState::create({{loop, pool}, system.platform, remover, defaults});
        EXPECT_EQ(*one->onboardingStep, step) << text;
    }
}

TEST_F(Persistence, TakesAValueOfAnotherTypeForAbsent) {
    const MemoryDefaults::Value wrong[] = {true, std::string("true"), system.now, Data{"[]"},
                                           Texts{"/a"}};
    for (const MemoryDefaults::Value& value : wrong) {
        defaults.stored.clear();
        for (const char* key : {"hasOnboarded", "onboardingStep", "lastSweptAt", "scanSchedule",
                                "remindWhenReady", "showInMenuBar", "alwaysUseTrash", "lastScanAt",
                                "remindedAt", "ignoredFolders", "sweepHistory", "lastDiskUsage"}) {
            defaults.stored.emplace(key, value);
        }
        const auto one = AppState::create({{loop, pool}, system.platform, remover, defaults});
        EXPECT_EQ(*one->hasOnboarded, value == wrong[0]);
        EXPECT_EQ(*one->onboardingStep, OnboardingStep::welcome);
        EXPECT_EQ(*one->schedule, ScanSchedule::weekly);
        EXPECT_TRUE(*one->remindWhenReady);
        EXPECT_TRUE(*one->showInMenuBar);
        EXPECT_TRUE(*one->alwaysUseTrash);
        EXPECT_EQ(one->lastScanAt->has_value(), value == wrong[2]);
        EXPECT_EQ(one->ignoredFolders->size(), value == wrong[4] ? 1U : 0U);
        EXPECT_THAT(*one->history, IsEmpty());
        EXPECT_EQ(*one->disk, DiskUsage{});
    }
}

TEST_F(Persistence, OfAStoredFalseStaysFalse) {
    defaults.stored["remindWhenReady"] = false;
    start();
    EXPECT_FALSE(*state->remindWhenReady);
}

TEST_F(Persistence, StoresAtEverySetEqualOrNot) {
    start();
    state->hasOnboarded = false;
    state->hasOnboarded = true;
    state->onboardingStep = OnboardingStep::access;
    state->schedule = ScanSchedule::off;
    state->schedule = ScanSchedule::off;
    state->remindWhenReady = true;
    state->showInMenuBar = false;
    state->alwaysUseTrash = true;
    state->lastSweptAt = system.now;
    state->lastScanAt = system.now;
    state->remindedAt = system.now;
    state->ignoredFolders = Texts{"/a"};
    EXPECT_EQ(defaults.writes, (std::vector<Write>{{"hasOnboarded", {false}},
                                                   {"hasOnboarded", {true}},
                                                   {"onboardingStep", {std::string("access")}},
                                                   {"scanSchedule", {std::string("Off")}},
                                                   {"scanSchedule", {std::string("Off")}},
                                                   {"remindWhenReady", {true}},
                                                   {"showInMenuBar", {false}},
                                                   {"alwaysUseTrash", {true}},
                                                   {"lastSweptAt", {system.now}},
                                                   {"lastScanAt", {system.now}},
                                                   {"remindedAt", {system.now}},
                                                   {"ignoredFolders", {Texts{"/a"}}}}));
}

TEST_F(Persistence, RemovesTheKeyOfADateThatIsCleared) {
    defaults.stored["lastSweptAt"] = system.now;
    start();
    state->lastSweptAt = std::nullopt;
    EXPECT_EQ(defaults.writes, (std::vector<Write>{{"lastSweptAt", std::nullopt}}));
    EXPECT_FALSE(defaults.stored.contains("lastSweptAt"));
}

TEST_F(Persistence, LeavesWhatLivesInMemoryAlone) {
    start();
    state->scannedAt = system.now;
    state->freedMB = 5;
    state->files = {{.url = "/a", .bytes = 5}};
    state->crumbItems = {trashItem("a", Safety::safe, 1)};
    state->sweepSelection = Ids{"a"};
    state->restoreProblem = std::map<std::string, std::string>{{"a", "b"}};
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(Persistence, RecordsTheNewestSweepFirst) {
    start();
    state->recordSweep("1 item · 5 MB", {{"/a/b\xff", "/Users/sam/.Trash/b"}});
    loop.advance(1s);
    state->recordSweep("Developer sweep · 1.0 GB", {});
    ASSERT_THAT(*state->history, SizeIs(2));
    const HistoryEntry& newest = state->history->at(0);
    const HistoryEntry& oldest = state->history->at(1);
    EXPECT_EQ(newest.summary, "Developer sweep · 1.0 GB");
    EXPECT_EQ(newest.date, system.now + 1s);
    EXPECT_THAT(newest.trashed, IsEmpty());
    EXPECT_FALSE(newest.restored);
    EXPECT_EQ(oldest.summary, "1 item · 5 MB");
    EXPECT_THAT(oldest.trashed, ElementsAre(Pair("/a/b%FF", "/Users/sam/.Trash/b")));
    EXPECT_EQ(newest.id.size(), 36U);
    EXPECT_NE(newest.id, oldest.id);
    EXPECT_EQ(defaults.writtenKeys(), (Texts{"sweepHistory", "sweepHistory"}));
}

TEST_F(Persistence, KeepsTenSweepsAndDropsTheOldest) {
    start();
    for (int number = 1; number <= 11; ++number) {
        state->recordSweep("sweep " + std::to_string(number), {{"/a", "/b"}});
    }
    Texts summaries;
    for (const HistoryEntry& entry : *state->history) summaries.push_back(entry.summary);
    EXPECT_THAT(summaries, ElementsAre("sweep 11", "sweep 10", "sweep 9", "sweep 8", "sweep 7",
                                       "sweep 6", "sweep 5", "sweep 4", "sweep 3", "sweep 2"));
}

TEST_F(Persistence, BringsBackWhatItKeptAtTheNextStart) {
    start();
    state->recordSweep("1 item · 5 MB", {{"/a", "/Users/sam/.Trash/a"}});
    state->schedule = ScanSchedule::off;
    const std::vector<HistoryEntry> kept = *state->history;
    const auto next = AppState::create({{loop, pool}, system.platform, remover, defaults});
    EXPECT_EQ(*next->history, kept);
    EXPECT_EQ(*next->schedule, ScanSchedule::off);
    EXPECT_EQ(*next->scanPhase, ScanPhase::idle);
}

TEST_F(Persistence, ReplacesAnUnreadableHistoryAtTheNextSave) {
    defaults.stored["sweepHistory"] = Data{R"([{"id":"x"}])"};
    start();
    EXPECT_THAT(*state->history, IsEmpty());
    EXPECT_EQ(defaults.stored["sweepHistory"], MemoryDefaults::Value(Data{R"([{"id":"x"}])"}));
    state->recordSweep("1 item · 5 MB", {});
    const auto next = AppState::create({{loop, pool}, system.platform, remover, defaults});
    ASSERT_THAT(*next->history, SizeIs(1));
    EXPECT_EQ(next->history->front().summary, "1 item · 5 MB");
}

TEST_F(Persistence, KeepsASweepWhoseNameIsNoText) {
    start();
    state->recordSweep("Uninstalled Bad\xff · 5 MB", {});
    const auto next = AppState::create({{loop, pool}, system.platform, remover, defaults});
    ASSERT_THAT(*next->history, SizeIs(1));
    EXPECT_EQ(next->history->front().summary, "Uninstalled Bad%FF · 5 MB");
}

TEST_F(Persistence, AnimatesANewEntry) {
    start();
    ChangedFields seen;
    const auto subscription =
        state->store().observe([&](const ChangedFields& changed) { seen = changed; });
    state->recordSweep("1 item · 5 MB", {});
    loop.runReady();
    EXPECT_THAT(seen, ElementsAre(Pair("history", true)));
}

TEST_F(Persistence, NeverReadsADefaultTwice) {
    start();
    defaults.stored["scanSchedule"] = std::string("Off");
    loop.advance(1h);
    EXPECT_EQ(*state->schedule, ScanSchedule::weekly);
}

}  // namespace
}  // namespace morvane
