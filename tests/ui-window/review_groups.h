#pragma once

#include <string>
#include <vector>

#include "ui/review/review_screen.h"

namespace morvane::test {

// A group of rows "PREFIX0", "PREFIX1" and so on.
inline screens::ReviewGroup group(const std::string& name, const std::string& prefix, int rows) {
    screens::ReviewGroup made{.id = name, .label = name, .symbol = "sparkles"};
    for (int row = 0; row < rows; ++row) {
        const std::string id = prefix + std::to_string(row);
        made.rows.push_back({.id = id, .label = "Row " + id, .size = "1 MB"});
    }
    return made;
}

inline screens::ReviewRow& openRow(screens::ReviewRow& row) {
    row.open = true;
    row.panel = screens::ReviewPanel{.title = "What is this?", .text = "A cache.", .location = "~"};
    return row;
}

}  // namespace morvane::test
