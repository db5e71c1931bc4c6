#include "ui/components/figure_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/theme/theme.h"

namespace morvane {
namespace {

// A font has whole pixels only, and a size may be a half: text is set at double and drawn at half,
// as all text of the window is.
constexpr int factor = 2;

// How far a figure comes from and goes to, in line heights.
constexpr double slide = 0.4;

double between(double from, double to, double part) {
    return from + (to - from) * part;
}

// What comes is hardly seen before what leaves has nearly gone: on top of each other neither can be
// read. By then both are inside the line, beyond which nothing is drawn.
double come(double part) {
    return std::clamp((part - 0.3) / 0.7, 0.0, 1.0);
}
double gone(double part) {
    return std::clamp(part / 0.6, 0.0, 1.0);
}

}  // namespace

FigurePainter::FigurePainter(QQuickItem* parent) : QQuickPaintedItem(parent) {
    progress_.setProperty("response", 0.4);
    progress_.setEnabled(false);
    progress_.componentComplete();
    connect(&progress_, &Spring::valueChanged, this, [this] { update(); });
}

void FigurePainter::setText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    if (isComponentComplete()) {
        QQmlEngine* const engine = qmlEngine(this);
        const bool still = engine != nullptr && Theme::of(*engine).reducedMotion();
        if (animated_ && !still && isVisible()) {
            roll(figureRuns(text_, font()));
        } else {
            lookAgain();
        }
    }
    emit textChanged();
}

void FigurePainter::setSize(double size) {
    if (size == size_) return;
    size_ = size;
    lookAgain();
    emit lookChanged();
}

void FigurePainter::setWeight(int weight) {
    if (weight == weight_) return;
    weight_ = weight;
    lookAgain();
    emit lookChanged();
}

void FigurePainter::setColor(const QColor& color) {
    if (color == color_) return;
    color_ = color;
    update();
    emit lookChanged();
}

void FigurePainter::setTracking(double tracking) {
    if (tracking == tracking_) return;
    tracking_ = tracking;
    lookAgain();
    emit lookChanged();
}

void FigurePainter::setFamily(const QString& family) {
    if (family == family_) return;
    family_ = family;
    lookAgain();
    emit lookChanged();
}

void FigurePainter::componentComplete() {
    QQuickPaintedItem::componentComplete();
    lookAgain();
}

QFont FigurePainter::font() const {
    QFont font(family_);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size_ * factor))));
    font.setWeight(static_cast<QFont::Weight>(weight_));
    font.setLetterSpacing(QFont::AbsoluteSpacing, tracking_ * factor);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

// Stands at the present text and look, without a motion.
void FigurePainter::lookAgain() {
    if (!isComponentComplete()) return;
    shown_.clear();
    leaving_.clear();
    for (const FigureRun& run : figureRuns(text_, font())) shown_.push_back({run, 1, 0, run.x});
    progress_.setEnabled(false);
    measure();
}

void FigurePainter::measure() {
    const QFontMetricsF metrics(font());
    double width = 0;
    for (const Moving& moving : shown_) width += moving.run.width;
    setImplicitSize(std::ceil(width / factor), std::ceil(metrics.height() / factor));
    setBaselineOffset(metrics.ascent() / factor);
    update();
}

void FigurePainter::roll(const std::vector<FigureRun>& runs) {
    std::vector<Moving> before;
    before.reserve(shown_.size());
    for (const Moving& moving : shown_) before.push_back(nowOf(moving));
    std::vector<Moving> left;
    for (const Moving& moving : leaving_) {
        const Moving now = nowOfLeaving(moving);
        if (now.opacity > 0) left.push_back(now);
    }

    // A run stays when the same text stands in the same place, counted from either end.
    const std::size_t count = runs.size();
    std::vector<bool> stays(before.size());
    shown_.clear();
    for (std::size_t index = 0; index < count; ++index) {
        Moving next{runs[index], 0, slide, runs[index].x};
        const std::size_t fromEnd = before.size() + index - count;  // past the end if there is none
        for (const std::size_t old : {index, fromEnd}) {
            if (old < before.size() && !stays[old] && before[old].run.text == runs[index].text) {
                next.opacity = before[old].opacity;
                next.shift = before[old].shift;
                next.x = before[old].x;
                stays[old] = true;
                break;
            }
        }
        shown_.push_back(next);
    }
    for (std::size_t old = 0; old < before.size(); ++old) {
        if (!stays[old]) left.push_back(before[old]);
    }
    leaving_ = std::move(left);

    progress_.setEnabled(false);
    progress_.setTarget(0);
    progress_.setEnabled(true);
    progress_.setTarget(1);
    measure();
}

FigurePainter::Moving FigurePainter::nowOf(const Moving& moving) const {
    const double part = progress_.enabled() ? progress_.value() : 1;
    return {moving.run, between(moving.opacity, 1, come(part)), between(moving.shift, 0, part),
            between(moving.x, moving.run.x, part)};
}

FigurePainter::Moving FigurePainter::nowOfLeaving(const Moving& moving) const {
    const double part = progress_.enabled() ? progress_.value() : 1;
    return {moving.run, between(moving.opacity, 0, gone(part)), between(moving.shift, -slide, part),
            moving.x};
}

void FigurePainter::drawRun(QPainter& painter, const Moving& run) const {
    if (run.opacity <= 0) return;
    const QFontMetricsF metrics(painter.font());
    painter.setOpacity(std::min(run.opacity, 1.0));
    painter.drawText(QPointF(run.x, metrics.ascent() + run.shift * metrics.height()), run.run.text);
}

void FigurePainter::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->scale(1.0 / factor, 1.0 / factor);
    painter->setFont(font());
    painter->setPen(color_);
    for (const Moving& moving : leaving_) drawRun(*painter, nowOfLeaving(moving));
    for (const Moving& moving : shown_) drawRun(*painter, nowOf(moving));
}

}  // namespace morvane
