#pragma once

#include <string>
#include <variant>
#include <vector>

#include "core/app_state.h"
#include "ui/screens/shapes.h"

namespace morvane::screens {

// The card under the disk, one for each phase of a scan; `kind` is the phase's name.
struct IdleCard {
    std::string kind = "idle";
    std::string title;
    std::string text;
    Button button;
    std::string foot;

    bool operator==(const IdleCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("kind", &IdleCard::kind), field("title", &IdleCard::title),
                          field("text", &IdleCard::text), field("button", &IdleCard::button),
                          field("foot", &IdleCard::foot)};
    }
};

struct ScanningRow {
    std::string id;
    std::string label;
    bool finished = false;
    std::string value;

    bool operator==(const ScanningRow&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &ScanningRow::id), field("label", &ScanningRow::label),
                          field("finished", &ScanningRow::finished),
                          field("value", &ScanningRow::value)};
    }
};

struct ScanningCard {
    std::string kind = "scanning";
    std::string title;
    std::string amount;
    std::string text;
    double fraction = 0;
    std::string location;
    std::vector<ScanningRow> rows;
    Button button;

    bool operator==(const ScanningCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("kind", &ScanningCard::kind),         field("title", &ScanningCard::title),
            field("amount", &ScanningCard::amount),     field("text", &ScanningCard::text),
            field("fraction", &ScanningCard::fraction), field("location", &ScanningCard::location),
            field("rows", &ScanningCard::rows),         field("button", &ScanningCard::button)};
    }
};

struct CategoryCard {
    std::string id;
    std::string label;
    std::string symbol;
    std::string amount;
    std::string text;
    std::string call;

    bool operator==(const CategoryCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("id", &CategoryCard::id),         field("label", &CategoryCard::label),
            field("symbol", &CategoryCard::symbol), field("amount", &CategoryCard::amount),
            field("text", &CategoryCard::text),     field("call", &CategoryCard::call)};
    }
};

struct LeftAloneCard {
    std::string symbol;
    std::string title;
    std::string text;

    bool operator==(const LeftAloneCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("symbol", &LeftAloneCard::symbol),
                          field("title", &LeftAloneCard::title),
                          field("text", &LeftAloneCard::text)};
    }
};

struct ResultsCard {
    std::string kind = "done";
    std::string title;
    std::string text;
    Button scanAgain;
    Button review;
    std::vector<CategoryCard> cards;
    LeftAloneCard leftAlone;

    bool operator==(const ResultsCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("kind", &ResultsCard::kind),          field("title", &ResultsCard::title),
            field("text", &ResultsCard::text),          field("scanAgain", &ResultsCard::scanAgain),
            field("review", &ResultsCard::review),      field("cards", &ResultsCard::cards),
            field("leftAlone", &ResultsCard::leftAlone)};
    }
};

struct SuccessCard {
    std::string kind = "success";
    std::string title;
    std::string text;
    std::optional<Button> openTrash;
    Button button;

    bool operator==(const SuccessCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("kind", &SuccessCard::kind), field("title", &SuccessCard::title),
                          field("text", &SuccessCard::text),
                          field("openTrash", &SuccessCard::openTrash),
                          field("button", &SuccessCard::button)};
    }
};

struct SpotlessCard {
    std::string kind = "empty";
    std::string title;
    std::string text;
    std::string detail;
    Button button;

    bool operator==(const SpotlessCard&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("kind", &SpotlessCard::kind), field("title", &SpotlessCard::title),
                          field("text", &SpotlessCard::text),
                          field("detail", &SpotlessCard::detail),
                          field("button", &SpotlessCard::button)};
    }
};

using PhaseCard = std::variant<IdleCard, ScanningCard, ResultsCard, SuccessCard, SpotlessCard>;

[[nodiscard]] PhaseCard phaseCard(const AppState& state);

// What a scan found of one category, in words.
[[nodiscard]] CategoryCard categoryCard(const AppState& state, ScanCategory category);

}  // namespace morvane::screens
