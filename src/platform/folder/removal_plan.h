#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/folder/removal_rules.h"
#include "platform/remover.h"

namespace morvane::folder {

// One target that is to be worked on.
struct PlannedTarget {
    std::size_t index = 0;              // in the list that was asked for
    std::filesystem::path asked;        // as it stands there
    std::filesystem::path path;         // the clean path it is worked on by
    std::string canonical;              // where it lies: a path with no link in it
    FolderIdentity folder;              // the folder it lies in; always known
    std::vector<PlannedTarget> inside;  // those that go along with it
};

// The failure of the first target in the order asked for, whatever order they came in.
class FirstFailure {
public:
    void note(std::size_t index, Failure failure) {
        if (failure_ && index_ <= index) return;
        index_ = index;
        failure_ = std::move(failure);
    }
    [[nodiscard]] const std::optional<Failure>& get() const { return failure_; }

private:
    std::size_t index_ = 0;
    std::optional<Failure> failure_;
};

// The targets that may go, in the order asked for, each named once. One that lies inside another,
// by the text of its path or by where it lies when links lead there, stands under that one. A
// target that is protected, not there, or whose folder is not the one it was seen in is noted in
// `failures` and left out first, so that what lies inside it and was named goes by itself.
[[nodiscard]] std::vector<PlannedTarget> planRemoval(const RemovalRules& rules,
                                                     const std::vector<RemovalTarget>& targets,
                                                     FirstFailure& failures);

// The same for the targets that were to go along with one that could not go: they go by themselves.
[[nodiscard]] std::vector<PlannedTarget> outermost(std::vector<PlannedTarget> targets);

// Finds the folder of a planned target again; refuses when it has become another one.
[[nodiscard]] Result<Place> findAgain(const RemovalRules& rules, const PlannedTarget& target);

}  // namespace morvane::folder
