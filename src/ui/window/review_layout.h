#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ui/review/review_screen.h"

namespace morvane {

// Where everything in the review's list stands, in logical pixels from its top: group after group,
// each a header and its rows, an open row being higher by its panel.
class ReviewLayout {
public:
    struct Entry {
        std::string key;  // "group:NAME" or "row:ID"
        int group = 0;
        int row = -1;  // in the group; -1 for its header
        double top = 0;
        double height = 0;

        [[nodiscard]] bool isHeader() const { return row < 0; }
        [[nodiscard]] double bottom() const { return top + height; }
    };
    struct Card {
        double top = 0;
        double height = 0;
        bool operator==(const Card&) const = default;
    };

    // `panelHeight` tells how high the open panel of a row is.
    void build(const std::vector<screens::ReviewGroup>& groups,
               const std::function<double(const std::string& key)>& panelHeight);

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] const std::vector<Card>& cards() const { return cards_; }
    [[nodiscard]] double height() const { return height_; }

    // The place of the entry of that key, or -1.
    [[nodiscard]] int placeOf(const std::string& key) const;
    // The place of the first entry that reaches below `y`; the number of entries if there is none.
    [[nodiscard]] int firstBelow(double y) const;

private:
    std::vector<Entry> entries_;
    std::vector<Card> cards_;
    std::unordered_map<std::string, int> places_;
    double height_ = 0;
};

}  // namespace morvane
