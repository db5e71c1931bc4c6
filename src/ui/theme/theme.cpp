#include "ui/theme/theme.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QStringList>
#include <algorithm>
#include <memory>

namespace morvane {
namespace {

QColor colorOf(const PaletteColor& entry, bool dark) {
    const PaletteValue& value = dark ? entry.dark : entry.light;
    QColor color = QColor::fromRgb(value.rgb);
    color.setAlphaF(static_cast<float>(value.alpha));
    return color;
}

// The first of the families that is installed, else what the system itself writes with.
QString installed(const QStringList& families, QFontDatabase::SystemFont otherwise) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family)) return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

}  // namespace

Theme::Theme(QObject* parent) : QObject(parent) {
#ifdef Q_OS_MACOS
    family_ = installed({}, QFontDatabase::GeneralFont);
    monoFamily_ = installed({}, QFontDatabase::FixedFont);
#else
    family_ = installed({QStringLiteral("Inter")}, QFontDatabase::GeneralFont);
    monoFamily_ = installed({QStringLiteral("JetBrains Mono"), QStringLiteral("DejaVu Sans Mono")},
                            QFontDatabase::FixedFont);
#endif
    if (qGuiApp != nullptr) pixelRatio_ = std::max(1.0, qGuiApp->devicePixelRatio());
}

Theme& Theme::of(QQmlEngine& engine) {
    const auto typeId = [] { return qmlTypeId("Morvane.Theme", 1, 0, "Theme"); };
    if (typeId() < 0) {
        // The types of a module are known once something has imported it.
        QQmlComponent import(&engine);
        import.setData("import QtQml\nimport Morvane.Theme\nQtObject {}", {});
        const std::unique_ptr<QObject> object(import.create());
    }
    return *engine.singletonInstance<Theme*>(typeId());
}

void Theme::setDark(bool dark) {
    if (dark_ == dark) return;
    dark_ = dark;
    emit appearanceChanged();
}

void Theme::setReducedMotion(bool reduced) {
    if (reducedMotion_ == reduced) return;
    reducedMotion_ = reduced;
    emit reducedMotionChanged();
}

void Theme::setPixelRatio(double ratio) {
    const double kept = ratio >= 1 ? ratio : 1;
    if (kept == pixelRatio_) return;
    pixelRatio_ = kept;
    emit pixelRatioChanged();
}

QColor Theme::color(const QString& name) const {
    return color(name, dark_);
}

QColor Theme::color(const QString& name, bool dark) const {
    const auto* const found = std::ranges::find_if(palette, [&](const PaletteColor& entry) {
        return name == QLatin1String(entry.name.data(), static_cast<int>(entry.name.size()));
    });
    return colorOf(found == palette.end() ? palette[paletteIndex("ink")] : *found, dark);
}

QColor Theme::shadow(double alpha) const {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(std::clamp(alpha, 0.0, 1.0)));
}

QColor Theme::faded(const QColor& color, double factor) const {
    QColor result = color;
    result.setAlphaF(std::clamp(color.alphaF() * static_cast<float>(factor), 0.0F, 1.0F));
    return result;
}

double Theme::lineHeight(const QFont& font) const {
    return QFontMetricsF(font).height();
}

QColor Theme::at(std::size_t index) const {
    return colorOf(palette.at(index), dark_);
}

}  // namespace morvane
