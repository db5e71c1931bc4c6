#pragma once

#include <string>
#include <vector>

#include "ui/screens/screen.h"

namespace morvane::screens {

// What an open row tells of its item.
struct ReviewPanel {
    std::string title;
    std::string text;
    std::string location;
    std::optional<Button> reveal;

    bool operator==(const ReviewPanel&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("title", &ReviewPanel::title), field("text", &ReviewPanel::text),
                          field("location", &ReviewPanel::location),
                          field("reveal", &ReviewPanel::reveal)};
    }
};

struct ReviewRow {
    std::string id;
    std::string label;
    CheckState state = CheckState::off;
    Badge badge;
    std::string size;
    bool open = false;
    std::optional<ReviewPanel> panel;

    bool operator==(const ReviewRow&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &ReviewRow::id),       field("label", &ReviewRow::label),
                          field("state", &ReviewRow::state), field("badge", &ReviewRow::badge),
                          field("size", &ReviewRow::size),   field("open", &ReviewRow::open),
                          field("panel", &ReviewRow::panel)};
    }
};

struct ReviewGroup {
    std::string id;
    std::string label;
    std::string symbol;
    CheckState state = CheckState::off;
    std::string count;
    std::string size;
    std::vector<ReviewRow> rows;

    bool operator==(const ReviewGroup&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("id", &ReviewGroup::id),         field("label", &ReviewGroup::label),
            field("symbol", &ReviewGroup::symbol), field("state", &ReviewGroup::state),
            field("count", &ReviewGroup::count),   field("size", &ReviewGroup::size),
            field("rows", &ReviewGroup::rows)};
    }
};

struct ReviewContent {
    std::string title;
    std::string found;
    Choice preset;
    std::optional<std::string> message;
    std::vector<ReviewGroup> groups;
    Footer footer;

    bool operator==(const ReviewContent&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("title", &ReviewContent::title),   field("found", &ReviewContent::found),
            field("preset", &ReviewContent::preset), field("message", &ReviewContent::message),
            field("groups", &ReviewContent::groups), field("footer", &ReviewContent::footer)};
    }
};

// The items of a scan, one by one, and the button that removes the chosen ones.
class ReviewScreen final : public ScreenOf<ReviewContent> {
public:
    explicit ReviewScreen(ScreenNeeds needs);

    [[nodiscard]] std::string_view name() const override { return "sweepReview"; }
    [[nodiscard]] ReviewContent content() const override;
    // Scans if there was no scan yet; one under way is left alone.
    void appear() override;

private:
    void toggleGroup(const std::string& name);
    void reveal(const std::string& id);

    ScreenNeeds needs_;
};

}  // namespace morvane::screens
