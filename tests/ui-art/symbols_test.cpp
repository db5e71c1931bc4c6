#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <gtest/gtest.h>

#include "pictures.h"
#include "ui/art/symbol_picture.h"
#include "ui/symbols/symbol_names.h"

namespace morvane {
namespace {

const QString source = QStringLiteral(MORVANE_SOURCE);

QString textOf(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

QSet<QString> listed() {
    QSet<QString> names;
    for (const std::string_view name : symbolNames) names.insert(textOf(name));
    return names;
}

QSet<QString> drawn() {
    QSet<QString> names;
    for (const QString& file :
         QDir(source + QStringLiteral("/ui/symbols/drawings")).entryList(QDir::Files))
        names.insert(file.endsWith(u".svg") ? file.chopped(4) : file);
    return names;
}

QByteArray drawing(const QString& name) {
    QFile file(source + QStringLiteral("/ui/symbols/drawings/") + name + QStringLiteral(".svg"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

// The pixels of an image that are at least half covered.
int covered(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y).alpha() > 127;
    return count;
}

TEST(Symbols, HaveADrawingForEachNameAndANameForEachDrawing) {
    EXPECT_EQ((listed() - drawn()).values(), QStringList());
    EXPECT_EQ((drawn() - listed()).values(), QStringList());
    EXPECT_EQ(listed().size(), static_cast<qsizetype>(symbolNames.size()));
}

TEST(Symbols, AreListedWhereverTheProductNamesOne) {
    // What looks like a symbol's name: known first words, or a text given to something called a
    // symbol or an icon.
    const QRegularExpression named(QStringLiteral(
        R"re("((?:[a-z]+\.)+(?:fill|right|left|down|up|clockwise|counterclockwise|circle|square|text|pie|shield|folder|magnifyingglass)(?:\.[a-z0-9]+)*)"|(?:symbol|icon)[A-Za-z]*\s*(?:=|:|\()\s*"([^"]*)")re"));
    QSet<QString> found;
    for (const QString& layer : {QStringLiteral("model"), QStringLiteral("core"),
                                 QStringLiteral("scanners"), QStringLiteral("ui")}) {
        QStringList folders{source + u'/' + layer};
        while (!folders.isEmpty()) {
            const QDir folder(folders.takeLast());
            for (const QFileInfo& entry :
                 folder.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
                if (entry.isDir()) {
                    folders.append(entry.filePath());
                    continue;
                }
                if (!QStringList{QStringLiteral("h"), QStringLiteral("cpp"), QStringLiteral("qml")}
                         .contains(entry.suffix()))
                    continue;
                QFile file(entry.filePath());
                if (!file.open(QIODevice::ReadOnly)) continue;
                QRegularExpressionMatchIterator matches =
                    named.globalMatch(QString::fromUtf8(file.readAll()));
                while (matches.hasNext()) {
                    const QRegularExpressionMatch match = matches.next();
                    found.insert(match.captured(1) + match.captured(2));
                }
            }
        }
    }
    found.remove(QString());
    found.remove(textOf(brandSymbol));
    EXPECT_TRUE(found.contains(QStringLiteral("doc.text")));
    EXPECT_EQ((found - listed()).values(), QStringList());
}

TEST(Symbols, AreDrawnOnOneGridInOneHand) {
    for (const QString& name : listed()) {
        const QByteArray text = drawing(name);
        QSvgRenderer renderer(text);
        ASSERT_TRUE(renderer.isValid()) << name.toStdString();
        const QRectF grid = renderer.viewBoxF();
        EXPECT_EQ(grid.height(), 24) << name.toStdString();
        EXPECT_EQ(grid.width() / 24, symbolAspect(name)) << name.toStdString();
        EXPECT_TRUE(text.contains(
            R"(fill="none" stroke="#000" stroke-width="2" stroke-linecap="round" stroke-linejoin="round")"))
            << name.toStdString();
    }
}

TEST(Symbols, StayWithinTheirGridInEveryWeight) {
    for (const QString& name : listed()) {
        for (const SymbolWeight weight : {SymbolWeight::regular, SymbolWeight::black}) {
            const QImage image = symbolImage(name, 96, Qt::black, weight);
            EXPECT_GT(covered(image), 200) << name.toStdString();
            int edge = 0;
            for (int at = 0; at < 96; ++at)
                edge = std::max({edge, image.pixelColor(at, 0).alpha(),
                                 image.pixelColor(at, 95).alpha(), image.pixelColor(0, at).alpha(),
                                 image.pixelColor(95, at).alpha()});
            EXPECT_LT(edge, weight == SymbolWeight::regular ? 8 : 255) << name.toStdString();
        }
    }
}

TEST(Symbols, TakeTheColourAndItsAlpha) {
    const QImage opaque = symbolImage(QStringLiteral("plus"), 48, QColor(0xCA3500));
    EXPECT_EQ(opaque.pixelColor(24, 24), QColor(0xCA3500));
    EXPECT_EQ(opaque.pixelColor(4, 4).alpha(), 0);
    const QImage thin = symbolImage(QStringLiteral("plus"), 48, QColor(0, 0, 255, 100));
    EXPECT_EQ(thin.pixelColor(24, 24).alpha(), 100);  // where two strokes cross, too
    EXPECT_EQ(thin.pixelColor(24, 12).alpha(), 100);
}

TEST(Symbols, AreSolidWithAHoleWhereTheNameSaysFill) {
    const QImage image = symbolImage(QStringLiteral("xmark.circle.fill"), 96, Qt::black);
    EXPECT_EQ(image.pixelColor(48, 48).alpha(), 0);
    EXPECT_EQ(image.pixelColor(48, 16).alpha(), 255);
    EXPECT_EQ(image.pixelColor(16, 48).alpha(), 255);
}

TEST(Symbols, GrowHeavierByName) {
    int before = 0;
    for (const char* name : {"regular", "semibold", "bold", "black"}) {
        const SymbolWeight weight = symbolWeight(QString::fromLatin1(name));
        const int ink = covered(symbolImage(QStringLiteral("checkmark"), 96, Qt::black, weight));
        EXPECT_GT(ink, before) << name;
        before = ink;
    }
    EXPECT_EQ(symbolWeight(QStringLiteral("heavy?")), SymbolWeight::regular);
}

TEST(Symbols, AreFlatStrokesOfOneTwelfthOfTheGrid) {
    const QImage image = symbolImage(QStringLiteral("plus"), 96, Qt::black);
    EXPECT_EQ(image.pixelColor(24, 44).alpha(), 255);  // 8 of 96, from 44 to 52
    EXPECT_EQ(image.pixelColor(24, 51).alpha(), 255);
    EXPECT_EQ(image.pixelColor(24, 43).alpha(), 0);
    EXPECT_EQ(image.pixelColor(24, 52).alpha(), 0);
}

TEST(Symbols, DrawTheBrandsMarkForItsName) {
    EXPECT_GT(covered(symbolImage(QStringLiteral("morvane"), 96, Qt::black)), 200);
    EXPECT_TRUE(isSymbol(QStringLiteral("morvane")));
}

TEST(Symbols, LeaveAnUnknownNameEmpty) {
    for (const char* name : {"", "nothing.of.this.name", "../../etc/passwd"}) {
        EXPECT_FALSE(isSymbol(QString::fromLatin1(name)));
        EXPECT_EQ(covered(symbolImage(QString::fromLatin1(name), 24, Qt::black)), 0);
    }
}

}  // namespace
}  // namespace morvane
