#include <cmath>
#include <gtest/gtest.h>

#include "frames.h"
#include "stage.h"
#include "ui/components/figure_runs.h"
#include "ui/components/speech.h"

namespace morvane {
namespace {

double number(const QQuickItem* item, const char* property) {
    return item->property(property).toDouble();
}

TEST(Words, RiseInWidthByHalfSizes) {
    Stage stage;
    const QQuickItem* const root = stage.show(QStringLiteral(R"(Item {
        Words { objectName: "a"; size: 11; text: "Nothing is permanently deleted" }
        Words { objectName: "b"; size: 11.5; text: "Nothing is permanently deleted" }
        Words { objectName: "c"; size: 12; text: "Nothing is permanently deleted" } })"));
    ASSERT_NE(root, nullptr);
    const double a = stage.item(QStringLiteral("a"))->implicitWidth();
    const double b = stage.item(QStringLiteral("b"))->implicitWidth();
    const double c = stage.item(QStringLiteral("c"))->implicitWidth();
    EXPECT_LT(a, b);
    EXPECT_LT(b, c);
    EXPECT_NEAR(b, (a + c) / 2, 1.01);
    EXPECT_LT(stage.item(QStringLiteral("a"))->implicitHeight(), 16);
    EXPECT_LT(stage.item(QStringLiteral("b"))->implicitHeight(), 16);
}

TEST(Words, StayOnOneLineWithTheBreaksOfANameShownAsMarks) {
    Stage stage;
    const QQuickItem* const words =
        stage.show(QStringLiteral("Words { text: 'a\\nb\\tc\\u2028d' }"));
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words->property("lineCount").toInt(), 1);
    EXPECT_LT(words->implicitHeight(), 20);
}

TEST(Words, SayThatTheyAreCut) {
    Stage stage;
    QQuickItem* const words =
        stage.show(QStringLiteral("Words { width: 60; text: 'Nothing is permanently deleted.' }"));
    ASSERT_NE(words, nullptr);
    EXPECT_TRUE(words->property("truncated").toBool());
    words->setWidth(400);
    EXPECT_FALSE(words->property("truncated").toBool());
}

TEST(Words, AreNotCutAtTheirOwnWidth) {
    Stage stage;
    for (const char* size : {"11", "11.5", "12", "12.5", "13", "13.5", "48"}) {
        const QQuickItem* const words = stage.show(
            QStringLiteral("Words { text: 'Goes to the Trash. 1.28 GB'; size: %1; tracking: -0.5 }")
                .arg(QLatin1String(size)));
        ASSERT_NE(words, nullptr);
        EXPECT_FALSE(words->property("truncated").toBool()) << size;
    }
}

TEST(Words, TakeMarkupAsItStands) {
    Stage stage;
    const QQuickItem* const plain =
        stage.show(QStringLiteral("Item { Words { objectName: 'm'; text: '<b>big</b>' }"
                                  "Words { objectName: 'p'; text: 'big' } }"));
    ASSERT_NE(plain, nullptr);
    EXPECT_GT(stage.item(QStringLiteral("m"))->implicitWidth(),
              2 * stage.item(QStringLiteral("p"))->implicitWidth());
}

TEST(Words, AddTheLineSpacingBetweenLinesOnly) {
    Stage stage;
    const QQuickItem* const root = stage.show(QStringLiteral(R"(Item {
        Words { objectName: "one"; size: 14; text: "a"; wraps: true; lineSpacing: 3 }
        Words { objectName: "tight"; size: 14; text: "a\nb\nc"; wraps: true }
        Words { objectName: "loose"; size: 14; text: "a\nb\nc"; wraps: true; lineSpacing: 3 }
        Words { objectName: "plain"; size: 14; text: "a" } })"));
    ASSERT_NE(root, nullptr);
    const auto height = [&](const char* name) {
        return stage.item(QString::fromLatin1(name))->implicitHeight();
    };
    EXPECT_NEAR(height("one"), height("plain"), 1);
    EXPECT_NEAR(height("loose"), height("tight") + 6, 1);
}

TEST(Words, GiveTheirBaseline) {
    Stage stage;
    const QQuickItem* const root =
        stage.show(QStringLiteral("Item { Words { objectName: 'w'; size: 12.5; text: 'x' } "
                                  "Figures { objectName: 'f'; size: 12.5; text: '1' } }"));
    ASSERT_NE(root, nullptr);
    const double words = stage.item(QStringLiteral("w"))->baselineOffset();
    EXPECT_NEAR(words, 12.1, 0.6);
    EXPECT_NEAR(stage.item(QStringLiteral("f"))->baselineOffset(), words, 0.5);
}

TEST(ShownText, MarksWhatWouldLeaveItsPlace) {
    EXPECT_EQ(shownText(QStringLiteral("plain é 名"), false), QStringLiteral("plain é 名"));
    EXPECT_EQ(shownText(QStringLiteral("a\r\nb"), false), QStringLiteral("a\u2423\u2423b"));
    EXPECT_EQ(shownText(QStringLiteral("a\nb\u2029c"), true), QStringLiteral("a\nb\u2423c"));
    EXPECT_EQ(shownText(QStringLiteral("photo\u202Egpj.app"), false),
              QStringLiteral("photo\u2423gpj.app"));
    EXPECT_EQ(shownText(QStringLiteral("\u2066a\u2067b\u2069"), false),
              QStringLiteral("\u2423a\u2423b\u2423"));
    EXPECT_EQ(shownText(QString(QChar(0)) + QChar(0x7F), false), QStringLiteral("\u2423\u2423"));
}

TEST(PilesUp, IsTrueOfMoreMarksThanALanguageSets) {
    EXPECT_FALSE(pilesUp(QString()));
    EXPECT_FALSE(pilesUp(QStringLiteral("plain é 名 👩‍👧")));
    EXPECT_FALSE(pilesUp(QStringLiteral("e\u0302\u0301\u0323e\u0302\u0301\u0323")));
    EXPECT_TRUE(pilesUp(QStringLiteral("e\u0302\u0301\u0323\u0301")));
    EXPECT_TRUE(pilesUp(QStringLiteral("e") + QString(5'000, QChar(0x0301))));
    EXPECT_TRUE(pilesUp(QStringLiteral("e\U0001D167\U0001D168\U0001D169\U0001D167")));
    EXPECT_FALSE(pilesUp(QString(QChar(0xD834))));
}

TEST(Percent, IsWholeAndClamped) {
    const Speech speech;
    EXPECT_EQ(speech.percent(0.4), QStringLiteral("40%"));
    EXPECT_EQ(speech.percent(-3), QStringLiteral("0%"));
    EXPECT_EQ(speech.percent(7), QStringLiteral("100%"));
    EXPECT_EQ(speech.percent(std::nan("")), QStringLiteral("0%"));
}

TEST(FigureRuns, GiveEveryDigitTheWidestDigitsWidth) {
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(48);
    font.setHintingPreference(QFont::PreferNoHinting);
    const double narrow = figureWidth(figureRuns(QStringLiteral("1.11 GB"), font));
    const double wide = figureWidth(figureRuns(QStringLiteral("8.88 GB"), font));
    EXPECT_EQ(narrow, wide);
    const std::vector<FigureRun> runs = figureRuns(QStringLiteral("1.18 GB"), font);
    ASSERT_EQ(runs.size(), 5U);
    EXPECT_EQ(runs[0].width, runs[2].width);
    EXPECT_EQ(runs[2].width, runs[3].width);
    EXPECT_EQ(runs[4].text, QStringLiteral(" GB"));
    EXPECT_TRUE(runs[0].digit);
    EXPECT_FALSE(runs[1].digit);
}

TEST(Words, FillTheirLastLineWhereBalancedWithoutALineMore) {
    const QString body = QStringLiteral(
        "Words { width: 360; size: 12.5; wraps: true; horizontalAlignment: Text.AlignHCenter; "
        "text: 'Morvane found nothing worth removing. You can scan again any time.'%1 }");
    for (const bool balanced : {false, true}) {
        Stage stage;
        QQuickItem* const words =
            stage.show(body.arg(balanced ? QStringLiteral("; balanced: true") : QString()));
        ASSERT_NE(words, nullptr);
        EXPECT_EQ(words->property("lineCount"), 2);
        const QQuickItem* const inner = words->childItems().constFirst();
        const double width = inner->width() * inner->scale();
        if (balanced) {
            EXPECT_LT(width, 280);
        } else {
            EXPECT_EQ(width, 360);
        }
        EXPECT_EQ(inner->x(), (360 - width) / 2);
    }
}

TEST(FigureRuns, TakeADigitApartFromWhatStandsBesideIt) {
    EXPECT_TRUE(figureRuns(QString(), QFont()).empty());
    EXPECT_EQ(figureRuns(QStringLiteral("abc"), QFont()).size(), 1U);
    EXPECT_EQ(figureRuns(QStringLiteral("12"), QFont()).size(), 2U);
}

TEST(Figures, RollFromTheOldTextToTheNewAndComeToRestOnIt) {
    Frames frames;
    Stage stage;
    const QString body = QStringLiteral(
        "Rectangle { width: 200; height: 60; color: Theme.surface; Figures { objectName: 'f'; "
        "text: '%1'; size: 26; animated: true } }");
    ASSERT_NE(stage.show(body.arg(QStringLiteral("2.40 GB"))), nullptr);
    const QImage goal = stage.picture();
    ASSERT_NE(stage.show(body.arg(QStringLiteral("1.28 GB"))), nullptr);
    const QImage before = stage.picture();
    stage.item(QStringLiteral("f"))->setProperty("text", QStringLiteral("2.40 GB"));
    frames.pass(0);
    frames.pass(80);
    const QImage between = stage.picture();
    EXPECT_NE(between, before);
    EXPECT_NE(between, goal);
    frames.pass(5000);
    EXPECT_EQ(stage.picture(), goal);
}

TEST(Figures, ChangeAtOnceWhereMotionIsReduced) {
    Frames frames;
    Stage stage;
    const QString body = QStringLiteral(
        "Rectangle { width: 200; height: 60; color: Theme.surface; Figures { "
        "objectName: 'f'; text: '%1'; animated: true } }");
    ASSERT_NE(stage.show(body.arg(QStringLiteral("2.40 GB"))), nullptr);
    const QImage goal = stage.picture();
    ASSERT_NE(stage.show(body.arg(QStringLiteral("1.28 GB"))), nullptr);
    stage.theme().setReducedMotion(true);
    stage.item(QStringLiteral("f"))->setProperty("text", QStringLiteral("2.40 GB"));
    EXPECT_EQ(stage.picture(), goal);
}

TEST(Figures, KeepTheirWidthWhileTheyChange) {
    Stage stage;
    QQuickItem* const figures =
        stage.show(QStringLiteral("Figures { text: '111 MB'; size: 11.5 }"));
    ASSERT_NE(figures, nullptr);
    const double before = figures->implicitWidth();
    EXPECT_GT(before, 30);
    figures->setProperty("text", QStringLiteral("888 MB"));
    EXPECT_EQ(figures->implicitWidth(), before);
    EXPECT_GT(number(figures, "implicitHeight"), 10);
}

}  // namespace
}  // namespace morvane
