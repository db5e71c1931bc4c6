#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/folder/removal_rules.h"
#include "platform/remover.h"

namespace morvane::folder {

// One target that is to be worked on.
struct PlannedTarget {
    std::size_t index = 0;        // in the list that was asked for
    std::filesystem::path asked;  // as it stands there
    std::filesystem::path path;   // the clean path it is worked on by
    FolderIdentity folder;        // the folder it lies in; always known

    bool operator==(const PlannedTarget&) const = default;
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

// The targets that may go, in the order asked for, without those that are named twice or lie inside
// another: by the text of their paths, and by where they lie when links lead there. A target that
// is protected, not there, or whose folder is not the one it was seen in is noted in `failures`
// and left out first, so that what lies inside it and was named goes by itself.
[[nodiscard]] std::vector<PlannedTarget> planRemoval(const RemovalRules& rules,
                                                     const std::vector<RemovalTarget>& targets,
                                                     FirstFailure& failures);

// Finds the folder of a planned target again; refuses when it has become another one.
[[nodiscard]] Result<Place> findAgain(const RemovalRules& rules, const PlannedTarget& target);

}  // namespace morvane::folder
