#include "scanners/app_order.h"

#include "scanners/scanner_test.h"

namespace morvane::CleanupScanner {
namespace {

class VisibleApps : public ScannerTest {
protected:
    std::vector<InstalledApp> apps;

    void add(std::string name, std::int64_t bytes = 0, std::optional<Instant> lastUsed = {}) {
        const Path url = "/Applications/" + std::to_string(apps.size()) + ".app";
        apps.push_back({.url = url,
                        .name = std::move(name),
                        .lastUsed = lastUsed,
                        .parts = {{"Application", url, bytes}}});
    }
    [[nodiscard]] Texts visible(std::string_view query, AppSort sort = AppSort::name) const {
        Texts names;
        for (const InstalledApp& app :
             visibleApps(apps, query, sort, system.now, system.platform.region)) {
            names.push_back(app.name);
        }
        return names;
    }
};

TEST_F(VisibleApps, AreThoseWhoseNameHoldsTheQuery) {
    add("Super Edit");
    add("Editor");
    add("Éditeur");
    add("Zoom");
    EXPECT_THAT(visible("EDIT"), UnorderedElementsAre("Super Edit", "Editor"));
    EXPECT_THAT(visible(" \t edit\n "), SizeIs(2));
    EXPECT_THAT(visible("ÉDIT"), ElementsAre("Éditeur"));
    EXPECT_THAT(visible("r e"), ElementsAre("Super Edit"));
    EXPECT_THAT(visible("nothing"), IsEmpty());
    EXPECT_THAT(visible(""), SizeIs(4));
    EXPECT_THAT(visible(" \n"), SizeIs(4));
}

TEST_F(VisibleApps, AreSortedBySizeLargestFirst) {
    add("Small", 1'000);
    add("Large", 5'000'000);
    add("Medium", 2'000'000);
    apps[0].parts.push_back({"Caches", "/x", 3'000'000});
    EXPECT_THAT(visible("", AppSort::size), ElementsAre("Large", "Small", "Medium"));
}

TEST_F(VisibleApps, AreSortedByNameAsTheUserWould) {
    add("zoom");
    add("Éditeur");
    add("App 10");
    add("App 9");
    add("editor");
    add("Zed");
    EXPECT_THAT(visible(""), ElementsAre("App 9", "App 10", "Éditeur", "editor", "Zed", "zoom"));
}

TEST_F(VisibleApps, AreSortedByWholeDaysUnused) {
    add("Today", 0, ago(1h));
    add("Never");
    add("Days", 0, daysAgo(3));
    add("AlmostADay", 0, ago(86'400s - 1s));
    add("OneDay", 0, ago(86'400s));
    add("Ages", 0, Instant::min());
    EXPECT_THAT(visible("", AppSort::leastUsed),
                ElementsAre("Never", "Ages", "Days", "OneDay", "AlmostADay", "Today"));
}

TEST_F(VisibleApps, KeepTheirPlaceWhereTheSortSaysNothing) {
    add("B", 5);
    add("A", 5);
    add("A", 5);
    const auto sorted = visibleApps(apps, "", AppSort::size, system.now, system.platform.region);
    Paths urls;
    for (const InstalledApp& app : sorted) urls.push_back(app.url);
    EXPECT_THAT(urls,
                ElementsAre("/Applications/1.app", "/Applications/2.app", "/Applications/0.app"));
}

TEST_F(VisibleApps, OfNoAppsAreNone) {
    EXPECT_THAT(visible("x", AppSort::size), IsEmpty());
}

}  // namespace
}  // namespace morvane::CleanupScanner
