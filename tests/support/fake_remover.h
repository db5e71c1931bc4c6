#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/remover.h"
#include "support/fake_files.h"

namespace morvane::fakes {

// Removes on a disk in memory and writes down what it was asked. Its faults have names: set one,
// act, look. Set it up while nothing is being removed; read it once that has ended.
class FakeRemover : public Remover {
public:
    using Paths = std::vector<std::filesystem::path>;

    FakeRemover(FakeFiles& files, std::filesystem::path trash);

    // Faults.
    std::set<std::filesystem::path> immovable;      // neither moved nor deleted: EPERM
    std::optional<Failure> refusesEverything;       // nothing goes, for this reason
    bool reportsNoError = false;                    // fails without giving a reason
    std::set<std::filesystem::path> cannotPutBack;  // original places that cannot be filled: EIO

    // Runs at the start of each removal, in the thread that removes.
    std::function<void()> whileRemoving;

    // What was asked, in order.
    std::vector<Paths> recycled;
    std::vector<Paths> removed;
    std::vector<std::pair<std::filesystem::path, std::filesystem::path>> putBacks;
    std::vector<RemovalTarget> targets;  // of all removals

    RemovalReport recycle(const std::vector<RemovalTarget>& targets) override;
    RemovalReport removeOutright(const std::vector<RemovalTarget>& targets) override;
    std::optional<Failure> putBack(const std::filesystem::path& from,
                                   const std::filesystem::path& to) override;

private:
    // Why `path` cannot go; nothing when it can.
    [[nodiscard]] std::optional<Failure> obstacle(const std::filesystem::path& path) const;
    [[nodiscard]] std::filesystem::path freePlace(const std::filesystem::path& path) const;
    void begin(const std::vector<RemovalTarget>& targets, std::vector<Paths>& record);
    void keepFirst(std::optional<Failure>& first, const Failure& failure) const;

    FakeFiles& files_;
    std::filesystem::path trash_;
};

}  // namespace morvane::fakes
