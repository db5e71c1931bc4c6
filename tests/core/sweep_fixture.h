#pragma once

#include "core/store_test.h"

namespace morvane {

class Sweep : public StoreTest {
protected:
    Sweep() { start(); }
    void sweep(std::vector<CleanupItem> items, std::optional<std::string> label = {}) {
        state->sweep(std::move(items), std::move(label));
        finishWork();
    }
    // Two caches of one and two parts and a backup, on the disk and all chosen.
    void fill() {
        state->crumbItems = {
            placed(trashItem("caches", Safety::safe, {{"/c/a", 1'000'000}, {"/c/b", 2'000'000}})),
            placed(trashItem("logs", Safety::safe, {{"/l/a", 500'000}}))};
        state->backupItems = {placed(trashItem("backup:a", Safety::review, {{"/b/a", 3'000'000}}))};
        state->sweepSelection = Ids{"caches", "logs", "backup:a"};
        defaults.writes.clear();
    }
};

}  // namespace morvane
