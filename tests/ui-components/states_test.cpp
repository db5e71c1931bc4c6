#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

#include "stage.h"

namespace morvane {
namespace {

// How many pixels of an item's surroundings differ.
int difference(const QImage& before, const QImage& now) {
    int count = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != now.pixel(x, y)) ++count;
        }
    }
    return count;
}

class States : public testing::TestWithParam<const char*> {};

// Rest, hover, press and keyboard focus each look different, in both appearances.
TEST_P(States, AreEachDrawn) {
    for (const bool dark : {false, true}) {
        Stage stage;
        stage.theme().setDark(dark);
        stage.theme().setReducedMotion(true);
        const QString body =
            QStringLiteral("Rectangle { width: 260; height: 80; color: Theme.surface; %1 }")
                .arg(QString::fromUtf8(GetParam()));
        ASSERT_NE(stage.show(body), nullptr);
        const QQuickItem* const item = stage.item(QStringLiteral("it"));
        const QPoint middle = item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();

        const QImage rest = stage.picture();
        QTest::mouseMove(&stage.window(), middle);
        const QImage hovered = stage.picture();
        QTest::mousePress(&stage.window(), Qt::LeftButton, Qt::NoModifier, middle);
        const QImage pressed = stage.picture();
        QTest::mouseRelease(&stage.window(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseMove(&stage.window(), {255, 75});
        const QImage left = stage.picture();
        stage.key(Qt::Key_Tab);
        const QImage focused = stage.picture();

        const QString folder = qEnvironmentVariable("MORVANE_PICTURES");
        if (!folder.isEmpty()) {
            const QString name = QString::fromUtf8(GetParam()).section(u' ', 0, 0);
            const QString end = dark ? QStringLiteral("-dark.png") : QStringLiteral("-light.png");
            hovered.save(QDir(folder).filePath(name + QStringLiteral("-1hover") + end));
            pressed.save(QDir(folder).filePath(name + QStringLiteral("-2press") + end));
            focused.save(QDir(folder).filePath(name + QStringLiteral("-3focus") + end));
        }
        EXPECT_GT(difference(rest, hovered), 50);
        EXPECT_GT(difference(hovered, pressed), 50);
        EXPECT_EQ(difference(rest, left), 0);
        EXPECT_GT(difference(rest, focused), 100);
        EXPECT_EQ(stage.warnings().join(u'\n').toStdString(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Controls, States,
    testing::Values("CheckBox { objectName: 'it'; x: 60; y: 30; state: 'on' }",
                    "Toggle { objectName: 'it'; x: 60; y: 30; on: true }",
                    "CapsuleButton { objectName: 'it'; x: 60; y: 25; large: true; "
                    "button: ({label: 'Scan Again', enabled: true, kind: 'prominent'}) }",
                    "TextButton { objectName: 'it'; x: 60; y: 30; "
                    "button: ({label: 'Show in Finder', enabled: true, kind: 'plain'}) }",
                    "Segment { objectName: 'it'; x: 60; y: 30; name: 'Weekly' }"),
    [](const auto& control) {
        return QString::fromUtf8(control.param).section(u' ', 0, 0).toStdString();
    });

}  // namespace
}  // namespace morvane
