#include "ui/dialogs/row_selection.h"

#include <algorithm>

namespace morvane {

void RowSelection::reset(int count) {
    count_ = count;
    current_ = count > 0 ? 0 : -1;
    anchor_ = 0;
    rows_.clear();
}

void RowSelection::choose(int row, How how) {
    if (row < 0 || row >= count_) return;
    current_ = row;
    switch (how) {
        case How::alone:
            rows_ = {row};
            anchor_ = row;
            break;
        case How::toggled:
            if (rows_.erase(row) == 0) rows_.insert(row);
            anchor_ = row;
            break;
        case How::extended:
            rows_.clear();
            for (int each = std::min(anchor_, row); each <= std::max(anchor_, row); ++each) {
                rows_.insert(each);
            }
            break;
    }
}

void RowSelection::step(int steps, How how) {
    if (count_ == 0) return;
    // The first step into a list where nothing is chosen yet is to the row the keyboard is on.
    const int from = rows_.empty() ? current_ - (steps > 0 ? 1 : 0) : current_;
    const std::int64_t to = std::int64_t{from} + steps;
    choose(static_cast<int>(std::clamp<std::int64_t>(to, 0, count_ - 1)), how);
}

void RowSelection::all() {
    for (int row = 0; row < count_; ++row) rows_.insert(row);
}

}  // namespace morvane
