#pragma once

#include <QFont>
#include <QString>
#include <vector>

namespace morvane {

// A piece of a text with figures: one digit in a cell as wide as the widest digit, or what stands
// between digits, in one piece.
struct FigureRun {
    QString text;
    double x = 0;      // where it is drawn; a digit is centred in its cell
    double width = 0;  // of the cell or the piece
    bool digit = false;
    bool operator==(const FigureRun&) const = default;
};

// The runs of a text in the pixels of its font, from the left. The same text with other digits has
// the same cells.
[[nodiscard]] std::vector<FigureRun> figureRuns(const QString& text, const QFont& font);

// The width of all of them together.
[[nodiscard]] double figureWidth(const std::vector<FigureRun>& runs);

}  // namespace morvane
