#pragma once

#include <optional>
#include <string>

#include "ui/figures/figure_table.h"
#include "ui/window_test.h"

namespace morvane {

// Holds the live scene against figures.
class FigureReader : public WindowTest {
protected:
    // What the figure has against the scene; empty where it holds.
    [[nodiscard]] std::string complaint(const Figure& figure);

private:
    [[nodiscard]] std::string complaintOfProperty(const Figure& figure);
    [[nodiscard]] std::string complaintOfDistance(const Figure& figure);
    // An item on view, a window, or what else has that name; null if nothing has.
    [[nodiscard]] QObject* thing(const QString& name);
    // Whether it is there without being on view, or is on view on another screen of the table: else
    // a name that nothing has would be absent everywhere.
    [[nodiscard]] bool isKnown(const QString& name);
    // Where it lies in its window, and its baseline there; none for what is not on view.
    struct Place {
        QRectF area;
        double baseline = 0;
    };
    [[nodiscard]] std::optional<Place> placeOf(const QString& name);
};

}  // namespace morvane
