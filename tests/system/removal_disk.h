#pragma once

#include <string>

#include "system/system_test.h"

namespace morvane::test {

// A scan's findings swept, and the history of it.
class RemovalTest : public SystemTest {
protected:
    static inline const std::string caches = "/Users/sam/Library/Caches/";
    void sweep(const Json& items) { driver().call("sweep", {{"items", items}}); }
    Json entry(std::size_t index = 0) { return driver().get("history").at(index); }
    Json state(std::size_t index = 0) {
        return driver().get("historyStates").at(entry(index).at("id").get<std::string>());
    }
    void restore(std::size_t index = 0) {
        driver().call("restore", {{"entry", entry(index).at("id")}});
    }
    Json problem(std::size_t index = 0) {
        const Json problems = driver().get("restoreProblem");
        const std::string id = entry(index).at("id");
        return problems.contains(id) ? problems.at(id) : Json(nullptr);
    }
    void docker(const std::string& prune) {
        disk.tool("/usr/local/bin/docker", R"(case "$1" in
system) echo '{"Type":"Images","Reclaimable":"2GB"}
{"Type":"Build Cache","Reclaimable":"1GB"}' ;;
image) )" + prune + R"( ;;
*) exit 0 ;;
esac)");
    }
};

}  // namespace morvane::test
