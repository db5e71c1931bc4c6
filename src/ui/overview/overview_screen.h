#pragma once

#include <string>
#include <vector>

#include "ui/overview/phase_cards.h"
#include "ui/screens/screen.h"

namespace morvane::screens {

// One stretch of the disk's bar and its entry in the legend; `color` is a name of the palette.
struct DiskSegment {
    std::string id;
    std::string label;
    std::string size;
    std::string color;
    double fraction = 0;

    bool operator==(const DiskSegment&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &DiskSegment::id), field("label", &DiskSegment::label),
                          field("size", &DiskSegment::size), field("color", &DiskSegment::color),
                          field("fraction", &DiskSegment::fraction)};
    }
};

struct LegendEntry {
    std::string label;
    std::string size;

    bool operator==(const LegendEntry&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("label", &LegendEntry::label), field("size", &LegendEntry::size)};
    }
};

struct DiskNote {
    std::string symbol;
    std::string text;
    Button button;

    bool operator==(const DiskNote&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("symbol", &DiskNote::symbol), field("text", &DiskNote::text),
                          field("button", &DiskNote::button)};
    }
};

struct DiskCard {
    std::string name;
    std::string used;
    std::string free;
    std::vector<DiskSegment> segments;
    LegendEntry legendFree;
    std::optional<DiskNote> note;

    bool operator==(const DiskCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("name", &DiskCard::name),
                          field("used", &DiskCard::used),
                          field("free", &DiskCard::free),
                          field("segments", &DiskCard::segments),
                          field("legendFree", &DiskCard::legendFree),
                          field("note", &DiskCard::note)};
    }
};

struct OverviewContent {
    std::string title;
    std::string lastSwept;
    DiskCard disk;
    PhaseCard card;

    bool operator==(const OverviewContent&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &OverviewContent::title),
                          field("lastSwept", &OverviewContent::lastSwept),
                          field("disk", &OverviewContent::disk),
                          field("card", &OverviewContent::card)};
    }
};

// The home screen: the disk at a glance, and one card for the phase of the scan.
class OverviewScreen final : public ScreenOf<OverviewContent> {
public:
    explicit OverviewScreen(ScreenNeeds needs);

    [[nodiscard]] std::string_view name() const override { return "overview"; }
    [[nodiscard]] OverviewContent content() const override;

private:
    void openCategory(std::string_view raw);

    ScreenNeeds needs_;
};

}  // namespace morvane::screens
