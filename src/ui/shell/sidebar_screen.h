#pragma once

#include <string>
#include <vector>

#include "ui/screens/screen.h"

namespace morvane::screens {

struct SidebarRow {
    std::string id;
    std::string label;
    std::string symbol;
    bool selected = false;

    bool operator==(const SidebarRow&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &SidebarRow::id), field("label", &SidebarRow::label),
                          field("symbol", &SidebarRow::symbol),
                          field("selected", &SidebarRow::selected)};
    }
};

struct SidebarSection {
    std::string title;
    std::vector<SidebarRow> rows;

    bool operator==(const SidebarSection&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &SidebarSection::title),
                          field("rows", &SidebarSection::rows)};
    }
};

struct DiskSummary {
    std::string name;
    std::string free;
    double fraction = 0;

    bool operator==(const DiskSummary&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("name", &DiskSummary::name), field("free", &DiskSummary::free),
                          field("fraction", &DiskSummary::fraction)};
    }
};

struct SidebarContent {
    std::string brand;
    std::vector<SidebarSection> sections;
    SidebarRow settings;
    DiskSummary disk;

    bool operator==(const SidebarContent&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("brand", &SidebarContent::brand), field("sections", &SidebarContent::sections),
            field("settings", &SidebarContent::settings), field("disk", &SidebarContent::disk)};
    }
};

class SidebarScreen final : public ScreenOf<SidebarContent> {
public:
    explicit SidebarScreen(ScreenNeeds needs);

    [[nodiscard]] std::string_view name() const override { return "sidebar"; }
    [[nodiscard]] SidebarContent content() const override;

private:
    ScreenNeeds needs_;
};

}  // namespace morvane::screens
