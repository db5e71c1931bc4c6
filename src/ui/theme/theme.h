#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <cstddef>
#include <string_view>

#include "ui/theme/palette.h"

namespace morvane {

// The place of a colour in `palette`; a name that is not there does not compile.
consteval std::size_t paletteIndex(std::string_view name) {
    std::size_t index = 0;
    while (palette.at(index).name != name) ++index;
    return index;
}

// One colour of the palette as a property of the theme.
#define MORVANE_COLOR(name)                                          \
    Q_PROPERTY(QColor name READ name NOTIFY appearanceChanged FINAL) \
public:                                                              \
    [[nodiscard]] QColor name() const {                              \
        return at(paletteIndex(#name));                              \
    }

// What every screen draws with: the colours of the palette in the appearance that holds now, the
// type faces, and whether things may move. One for each engine; main thread.
//
// The appearance and the wish for reduced motion come from the desktop, so only C++ writes them.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool dark READ dark NOTIFY appearanceChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
    Q_PROPERTY(QString monoFamily READ monoFamily CONSTANT FINAL)
    // One physical pixel in logical units.
    Q_PROPERTY(double hairline READ hairline NOTIFY pixelRatioChanged FINAL)
    // The knob of a switch, which is light in both appearances.
    Q_PROPERTY(QColor knob READ knob CONSTANT FINAL)
    // No colour at all.
    Q_PROPERTY(QColor clear READ clear CONSTANT FINAL)

    MORVANE_COLOR(surface)
    MORVANE_COLOR(well)
    MORVANE_COLOR(card)
    MORVANE_COLOR(cardEdge)
    // The property `hairline` is a width; this is the colour of that name.
    Q_PROPERTY(QColor hairlineColor READ hairlineColor NOTIFY appearanceChanged FINAL)
    MORVANE_COLOR(rowHover)
    MORVANE_COLOR(trackFill)
    MORVANE_COLOR(segmentTrack)
    MORVANE_COLOR(segmentThumb)
    MORVANE_COLOR(checkEdge)
    MORVANE_COLOR(ink)
    MORVANE_COLOR(inkSoft)
    MORVANE_COLOR(inkFaint)
    MORVANE_COLOR(accent)
    MORVANE_COLOR(onAccent)
    MORVANE_COLOR(accentTint)
    MORVANE_COLOR(accentTintStrong)
    MORVANE_COLOR(warm)
    MORVANE_COLOR(warmInk)
    MORVANE_COLOR(safeFill)
    MORVANE_COLOR(safeInk)
    MORVANE_COLOR(regenFill)
    MORVANE_COLOR(regenInk)
    MORVANE_COLOR(reviewFill)
    MORVANE_COLOR(reviewInk)
    MORVANE_COLOR(diskMedia)
    MORVANE_COLOR(diskDocuments)
    MORVANE_COLOR(diskDeveloper)
    MORVANE_COLOR(diskSystem)
    MORVANE_COLOR(diskOther)

public:
    explicit Theme(QObject* parent = nullptr);

    // The theme of an engine, made with its first use. The engine owns it.
    [[nodiscard]] static Theme& of(QQmlEngine& engine);

    [[nodiscard]] bool dark() const { return dark_; }
    void setDark(bool dark);

    [[nodiscard]] bool reducedMotion() const { return reducedMotion_; }
    void setReducedMotion(bool reduced);

    // The physical pixels of a logical one on the screen that shows the window; 1 or more.
    void setPixelRatio(double ratio);
    [[nodiscard]] double hairline() const { return 1 / pixelRatio_; }

    [[nodiscard]] QString family() const { return family_; }
    [[nodiscard]] QString monoFamily() const { return monoFamily_; }
    [[nodiscard]] QColor knob() const { return QColor(255, 255, 255); }
    [[nodiscard]] QColor clear() const { return QColor(0, 0, 0, 0); }
    [[nodiscard]] QColor hairlineColor() const { return at(paletteIndex("hairline")); }

    // The colour of that palette name; ink for a name that is not in the palette, so that a text
    // stays readable. A binding that names it has to mention `dark` to follow the appearance,
    // which is what the second form is for.
    [[nodiscard]] Q_INVOKABLE QColor color(const QString& name) const;
    [[nodiscard]] Q_INVOKABLE QColor color(const QString& name, bool dark) const;

    // The black of a shadow at that alpha, which is the same in both appearances.
    [[nodiscard]] Q_INVOKABLE QColor shadow(double alpha) const;

    // The same colour with its alpha multiplied.
    [[nodiscard]] Q_INVOKABLE QColor faded(const QColor& color, double factor) const;

    // From line to line of a text in that font, in its own pixels.
    [[nodiscard]] Q_INVOKABLE double lineHeight(const QFont& font) const;

signals:
    void appearanceChanged();
    void reducedMotionChanged();
    void pixelRatioChanged();

private:
    [[nodiscard]] QColor at(std::size_t index) const;

    bool dark_ = false;
    bool reducedMotion_ = false;
    double pixelRatio_ = 1;
    QString family_;
    QString monoFamily_;
};

#undef MORVANE_COLOR

}  // namespace morvane
