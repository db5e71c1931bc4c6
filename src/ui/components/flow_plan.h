#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace morvane {

// The room of an item, in logical pixels.
struct FlowSize {
    double width = 0;
    double height = 0;
    bool operator==(const FlowSize&) const = default;
};

// One row of a flow: the items in it, by their places, and its room.
struct FlowRow {
    std::vector<std::size_t> indices;
    double width = 0;
    double height = 0;
    bool operator==(const FlowRow&) const = default;
};

// The top-left corner of an item.
struct FlowPlace {
    double x = 0;
    double y = 0;
    bool operator==(const FlowPlace&) const = default;
};

// A flow laid out: its rows, where each item goes, and the room of the whole.
struct FlowPlan {
    std::vector<FlowRow> rows;
    std::vector<FlowPlace> places;
    FlowSize size;
};

// The rows that `items` fill in their order when a row may be `width` wide, which may be infinite.
// An item that is wider than a row stands alone. There is always a row; it is empty without items.
[[nodiscard]] std::vector<FlowRow> flowRows(std::span<const FlowSize> items, double width,
                                            double spacing);

// The same with places: rows below each other, items centred upright in their row.
[[nodiscard]] FlowPlan flowPlan(std::span<const FlowSize> items, double width, double spacing,
                                double lineSpacing);

}  // namespace morvane
