#include "ui/components/flow_plan.h"

#include <algorithm>

namespace morvane {

std::vector<FlowRow> flowRows(std::span<const FlowSize> items, double width, double spacing) {
    std::vector<FlowRow> rows(1);
    for (std::size_t index = 0; index < items.size(); ++index) {
        const FlowSize item = items[index];
        const double before = rows.back().indices.empty() ? 0 : spacing;
        const bool fits =
            rows.back().indices.empty() || !(rows.back().width + before + item.width > width);
        if (!fits) rows.emplace_back();
        FlowRow& row = rows.back();
        row.width += item.width + (row.indices.empty() ? 0 : spacing);
        row.height = std::max(row.height, item.height);
        row.indices.push_back(index);
    }
    return rows;
}

FlowPlan flowPlan(std::span<const FlowSize> items, double width, double spacing,
                  double lineSpacing) {
    FlowPlan plan{.rows = flowRows(items, width, spacing),
                  .places = std::vector<FlowPlace>(items.size()),
                  .size = {}};
    double y = 0;
    for (const FlowRow& row : plan.rows) {
        double x = 0;
        for (const std::size_t index : row.indices) {
            plan.places[index] = {x, y + (row.height - items[index].height) / 2};
            x += spacing + items[index].width;
        }
        plan.size.width = std::max(plan.size.width, row.width);
        plan.size.height = y + row.height;
        y += row.height + lineSpacing;
    }
    return plan;
}

}  // namespace morvane
