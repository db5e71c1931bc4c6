#include "ui/theme/theme.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include "stage.h"

namespace morvane {
namespace {

TEST(ThemeColors, GiveEveryNameOfThePaletteInBothAppearances) {
    Theme theme;
    for (const PaletteColor& entry : palette) {
        const QByteArray name(entry.name.data(), static_cast<qsizetype>(entry.name.size()));
        // The name "hairline" is taken by the width.
        const QByteArray property = name == "hairline" ? QByteArray("hairlineColor") : name;
        for (const bool dark : {false, true}) {
            theme.setDark(dark);
            const PaletteValue value = dark ? entry.dark : entry.light;
            const QColor color = theme.property(property).value<QColor>();
            ASSERT_TRUE(color.isValid()) << name.toStdString();
            EXPECT_EQ(color.rgb() & 0xFFFFFF, value.rgb) << name.toStdString();
            EXPECT_NEAR(static_cast<double>(color.alphaF()), value.alpha, 1.0 / 65535);
            EXPECT_EQ(theme.color(QString::fromUtf8(name)), color);
            EXPECT_EQ(theme.color(QString::fromUtf8(name), dark), color);
        }
    }
}

TEST(ThemeColors, StayReadableForANameThatIsNotThere) {
    Theme theme;
    EXPECT_EQ(theme.color(QStringLiteral("mauve")), QColor(0x1D, 0x1D, 0x1F));
    theme.setDark(true);
    EXPECT_EQ(theme.color(QString()), QColor(0xF1, 0xF1, 0xF2));
}

TEST(ThemeColors, FollowTheAppearanceInABinding) {
    Stage stage;
    const QQuickItem* const root = stage.show(
        QStringLiteral("Rectangle { property color named: Theme.color('accent', Theme.dark); "
                       "color: Theme.surface }"));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->property("color").value<QColor>(), QColor(0xFB, 0xFB, 0xFA));
    EXPECT_EQ(root->property("named").value<QColor>(), QColor(0xCA, 0x35, 0x00));
    stage.theme().setDark(true);
    EXPECT_EQ(root->property("color").value<QColor>(), QColor(0x1D, 0x1E, 0x1E));
    EXPECT_EQ(root->property("named").value<QColor>(), QColor(0xFF, 0x6E, 0x32));
}

TEST(Theme, TellsOnlyOfWhatChanges) {
    Theme theme;
    QSignalSpy spy(&theme, &Theme::appearanceChanged);
    theme.setDark(false);
    EXPECT_EQ(spy.count(), 0);
    theme.setDark(true);
    theme.setDark(true);
    EXPECT_EQ(spy.count(), 1);
}

TEST(Theme, WritesWithTheFacesOfThePackages) {
    const Theme theme;
    EXPECT_EQ(theme.family().toStdString(), "Inter");
    EXPECT_EQ(theme.monoFamily().toStdString(), "JetBrains Mono");
}

TEST(Theme, MakesAHairlineOnePhysicalPixel) {
    Theme theme;
    theme.setPixelRatio(2);
    EXPECT_EQ(theme.hairline(), 0.5);
    theme.setPixelRatio(0);
    EXPECT_EQ(theme.hairline(), 1);
}

TEST(Theme, IsKnownBeforeAnythingHasImportedIt) {
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/"));
    EXPECT_EQ(&Theme::of(engine), &Theme::of(engine));
}

}  // namespace
}  // namespace morvane
