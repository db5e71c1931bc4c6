#include "ui/components/figure_runs.h"

#include <QFontMetricsF>
#include <algorithm>
#include <numeric>

namespace morvane {
namespace {

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

}  // namespace

std::vector<FigureRun> figureRuns(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    double cell = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        cell = std::max(cell, metrics.horizontalAdvance(QString(QChar(digit))));
    }

    std::vector<FigureRun> runs;
    double left = 0;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at + 1;
        const bool digit = isDigit(text[at]);
        while (!digit && end < text.size() && !isDigit(text[end])) ++end;
        const QString piece = text.mid(at, end - at);
        const double advance = metrics.horizontalAdvance(piece);
        const double width = digit ? cell : advance;
        runs.push_back({piece, left + (width - advance) / 2, width, digit});
        left += width;
        at = end;
    }
    return runs;
}

double figureWidth(const std::vector<FigureRun>& runs) {
    return std::accumulate(runs.begin(), runs.end(), 0.0,
                           [](double sum, const FigureRun& run) { return sum + run.width; });
}

}  // namespace morvane
