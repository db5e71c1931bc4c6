#pragma once

#include <cstdint>
#include <set>

namespace morvane {

// Which rows of a list are chosen, and which one the keyboard is on, by the customs of lists:
// a click chooses one row alone, Control adds or takes away one, Shift chooses from the last row
// that was chosen without Shift.
class RowSelection {
public:
    enum class How : std::uint8_t { alone, toggled, extended };

    // For a list of `count` rows: none chosen, the keyboard on the first.
    void reset(int count);
    // A row that is not there changes nothing.
    void choose(int row, How how);
    // The keyboard goes `steps` rows on, kept within the list, and chooses there.
    void step(int steps, How how);
    void all();

    [[nodiscard]] bool contains(int row) const { return rows_.contains(row); }
    // -1 for an empty list.
    [[nodiscard]] int current() const { return current_; }
    [[nodiscard]] const std::set<int>& rows() const { return rows_; }

private:
    int count_ = 0;
    int current_ = -1;
    int anchor_ = 0;
    std::set<int> rows_;
};

}  // namespace morvane
