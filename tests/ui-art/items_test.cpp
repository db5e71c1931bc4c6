#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "pictures.h"

namespace morvane {
namespace {

QStringList complaints;
void collect(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtDebugMsg && type != QtInfoMsg) complaints.append(text);
}

// A window with one scene in it, on a white ground; anything the toolkit complains of fails.
class Items : public testing::Test {
protected:
    void SetUp() override {
        complaints.clear();
        engine_.addImportPath(QStringLiteral("qrc:/"));
        before_ = qInstallMessageHandler(collect);
        window_.setColor(Qt::white);
        window_.resize(400, 300);
    }
    void TearDown() override {
        content_.reset();
        qInstallMessageHandler(before_);
        EXPECT_EQ(complaints.join(u'\n').toStdString(), "");
    }

    QQuickItem* load(const QByteArray& body) {
        QQmlComponent component(&engine_);
        component.setData("import QtQuick\nimport Morvane.Art\n" + body, QUrl());
        content_.reset(qobject_cast<QQuickItem*>(component.create()));
        EXPECT_NE(content_, nullptr) << component.errorString().toStdString();
        if (content_ == nullptr) content_ = std::make_unique<QQuickItem>();
        content_->setParentItem(window_.contentItem());
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
        if (qEnvironmentVariableIsSet("MORVANE_TEST_ON_OPENGL"))
            EXPECT_EQ(window_.rendererInterface()->graphicsApi(), QSGRendererInterface::OpenGL);
        return content_.get();
    }

    // The colour of the device pixel at or just after this point.
    [[nodiscard]] QColor at(const QImage& image, double x, double y) const {
        const double ratio = window_.effectiveDevicePixelRatio();
        return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
    }
    [[nodiscard]] QImage grab() {
        return window_.grabWindow().convertToFormat(QImage::Format_RGB32);
    }

    QQuickWindow window_;

private:
    QQmlEngine engine_;
    std::unique_ptr<QQuickItem> content_;
    QtMessageHandler before_ = nullptr;
};

TEST_F(Items, ShowEveryKindOfArtInBothAppearances) {
    for (const char* dark : {"false", "true"}) {
        load(QByteArray(R"(Item { width: 400; height: 300
            AppLogo { size: 64; detailed: DARK }
            SweepGlyph { x: 70; size: 34; lineWidth: 1.8; color: "red" }
            IdleIllustration { y: 70; size: 100; dark: DARK }
            SpotlessIllustration { x: 110; y: 70; size: 100; dark: DARK }
            SweepingAnimation { dark: DARK; running: true }
            Confetti { anchors.fill: parent; dark: DARK; running: true }
            Symbol { x: 300; name: "folder"; size: 17; color: "blue"; weight: "black" }
            RoundedBox { x: 220; y: 200; width: 60; height: 40; radius: 9; color: "green" }
            Hatching { x: 300; y: 200; width: 60; height: 40; color: "gray" }
        })")
                 .replace("DARK", dark));
        EXPECT_FALSE(grab().isNull());
    }
}

TEST_F(Items, TakeTheirSizeFromTheirArt) {
    QQuickItem* item = load("SweepingAnimation {}");
    EXPECT_EQ(QSizeF(item->width(), item->height()), QSizeF(280, 220));
    item = load("SweepGlyph { size: 17 }");
    EXPECT_EQ(QSizeF(item->width(), item->height()), QSizeF(17, 17));
    item = load("Symbol { name: \"folder\"; size: 17 }");
    EXPECT_NEAR(item->width(), 20, 1e-9);
    item = load("Symbol { name: \"chevron.right\"; size: 17 }");
    EXPECT_NEAR(item->width(), 20 * 14.0 / 24, 1e-9);
    EXPECT_NEAR(item->height(), 20, 1e-9);
}

TEST_F(Items, FollowAChangeOfAppearance) {
    QQuickItem* item = load("IdleIllustration { size: 200 }");
    EXPECT_EQ(at(grab(), 120, 120), QColor(0xCA3500));
    item->setProperty("dark", true);
    EXPECT_EQ(at(grab(), 120, 120), QColor(0xFF6E32));
    EXPECT_EQ(at(grab(), 108, 40), QColor(0x37312A));
}

TEST_F(Items, DrawABoxWithAHairlineOfOneDevicePixel) {
    load(R"(RoundedBox { x: 20; y: 20; width: 200; height: 100; radius: 14; color: "#262828"
                         edgeColor: "#FF0000"; edgeWidth: 0.5 })");
    const double pixel = 1 / window_.effectiveDevicePixelRatio();
    const QImage image = grab();
    EXPECT_EQ(at(image, 120, 20 - pixel), QColor(Qt::white));
    EXPECT_EQ(at(image, 120, 20), QColor(Qt::red));
    EXPECT_EQ(at(image, 120, 20 + pixel), QColor(0x262828));
    EXPECT_EQ(at(image, 120, 120 - pixel), QColor(Qt::red));
    EXPECT_EQ(at(image, 120, 120), QColor(Qt::white));
    EXPECT_EQ(at(image, 20, 70), QColor(Qt::red));
    EXPECT_EQ(at(image, 220 - pixel, 70), QColor(Qt::red));
    EXPECT_EQ(at(image, 220, 70), QColor(Qt::white));
    EXPECT_EQ(at(image, 20, 20), QColor(Qt::white));
}

TEST_F(Items, KeepABoxOnThePixelGridWhereverItsParentsGo) {
    QQuickItem* parent = load(R"(Item { x: 10.3; y: 10.3
        RoundedBox { x: 0.4; y: 0.4; width: 100; height: 60; color: "black" } })");
    for (const double place : {10.3, 11.8, 47.05}) {
        parent->setPosition({place, place});
        const QImage image = grab();
        const double ratio = window_.effectiveDevicePixelRatio();
        const double edge = std::floor((place + 0.4) * ratio + 0.5) / ratio;
        EXPECT_EQ(at(image, edge + 0.01, place + 30), QColor(Qt::black)) << place;
        EXPECT_EQ(at(image, edge + 0.01 - 1 / ratio, place + 30).lightness() > 250, true) << place;
        EXPECT_EQ(at(image, edge + 100.01, place + 30), QColor(Qt::white)) << place;
        EXPECT_EQ(at(image, edge + 100.01 - 1 / ratio, place + 30), QColor(Qt::black)) << place;
    }
}

TEST_F(Items, CentreAHoveringSymbolOnWholePixels) {
    load(R"(Item { width: 30; height: 30
        Symbol { anchors.centerIn: parent; name: "minus.square"; size: 24 * 0.85 } })");
    const QImage image = grab();
    // Its sides lie at 2 and 22 of a grid of 24 that begins at 3: 5 to 25.
    EXPECT_LT(at(image, 5.1, 15).lightness(), 10);
    EXPECT_EQ(at(image, 4.4, 15), QColor(Qt::white));
    EXPECT_EQ(at(image, 25.1, 15), QColor(Qt::white));
}

TEST_F(Items, ShowNothingForANameThatIsNotDrawnOrABoxWithoutSize) {
    load(R"(Item { Symbol { name: "no.such.name"; size: 100 } RoundedBox { color: "black" }
                   Hatching { color: "black" } AppLogo { size: 0 } })");
    EXPECT_EQ(at(grab(), 1, 1), QColor(Qt::white));
    EXPECT_EQ(at(grab(), 60, 60), QColor(Qt::white));
}

TEST_F(Items, LeaveOutAndBringBackWhatChangesItsName) {
    QQuickItem* item = load("Symbol { name: \"plus\"; size: 85 }");
    EXPECT_LT(at(grab(), 50, 50).lightness(), 10);
    item->setProperty("name", QStringLiteral("gone"));
    EXPECT_EQ(at(grab(), 50, 50), QColor(Qt::white));
    item->setProperty("name", QStringLiteral("plus"));
    EXPECT_LT(at(grab(), 50, 50).lightness(), 10);
}

TEST_F(Items, PutTheSweepWhereTheClockSays) {
    QQuickItem* item = load("SweepingAnimation { time: 0 }");
    QImage image = grab();
    EXPECT_EQ(at(image, 140, 30), QColor(0xF6EEDD));
    EXPECT_EQ(at(image, 70 + 120, 10 + 120), QColor(0xCA3500));
    EXPECT_EQ(at(image, 76, 121), QColor(0xF6EEDD));
    item->setProperty("time", 1.3);  // the first crumb half way
    image = grab();
    EXPECT_EQ(at(image, 76, 121), QColor(0x8A6A33));
    EXPECT_EQ(at(image, 200, 125), QColor(0xCA3500));
}

TEST_F(Items, BurstFromTheMiddleOfTheirSpace) {
    QQuickItem* item = load("Confetti { width: 400; height: 300; time: 0 }");
    EXPECT_EQ(at(grab(), 200, 150), QColor(Qt::white));
    item->setProperty("time", 0.48);  // the first piece: eased 0.386
    const QImage image = grab();
    EXPECT_LT(at(image, 266, 148).blue(), 60);
}

TEST_F(Items, MoveByThemselvesOnlyWhileTheyRunAndMayMove) {
    QQuickItem* item = load("SweepingAnimation { running: true; reducedMotion: true }");
    const double still = item->property("time").toDouble();
    EXPECT_EQ(still, item->property("stillTime").toDouble());
    item->setProperty("reducedMotion", false);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const double time = item->property("time").toDouble();
        return time > 0 && time != still;
    }));
    item->setProperty("running", false);
    EXPECT_EQ(item->property("time").toDouble(), still);
}

}  // namespace
}  // namespace morvane
