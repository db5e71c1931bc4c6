// Names as they come: very long, in other directions, with breaks, controls and piled-up marks.
// Each stays in its place, and its whole is told.

#include <QAccessible>
#include <QPainter>
#include <algorithm>

#include "ui/window_test.h"

namespace morvane {
namespace {

struct OddName {
    const char* title;
    QString name;
};

void PrintTo(const OddName& odd, std::ostream* out) {
    *out << odd.title;
}

const OddName oddNames[] = {
    {"OneWord", QString(10'000, u'W')},
    {"Words", QStringLiteral("many words ").repeated(910).first(10'000)},
    {"LineBreaks", QStringLiteral("one\ntwo\r\nthree\u2028four\u2029five\vsix")},
    {"Controls", QStringLiteral("a\x01z\x1b[31mred\x7f\tb\u0085c")},
    {"RightToLeft", QStringLiteral("שלום עולם ").repeated(1'000)},
    {"TurnedDirection", QStringLiteral("safe\u202Efdp.exe\u2066x\u2067y\u2069")},
    {"PiledUpMarks", QStringLiteral("Z") + QString(5'000, QChar(0x0301))},
    {"Markup", QStringLiteral("<h1>big</h1><img src=\"file:///etc/passwd\">&amp;")},
    {"Pictures", QString::fromUtf8("👩‍👩‍👧‍👦").repeated(900)},
};

class Names : public WindowTest, public testing::WithParamInterface<OddName> {
protected:
    [[nodiscard]] static CleanupItem item_(const QString& name, const char* id) {
        CleanupItem item = trashItem(id, Safety::safe, 3'000'000);
        item.name = name.toStdString();
        item.explanation = "What this is.";
        item.location = name.toStdString();
        item.revealURL = "/Users/sam";
        return item;
    }
    // The review with that name in the middle one of three rows, which is open.
    void review(const QString& name) {
        state->crumbItems = {item_(QStringLiteral("First"), "first"), item_(name, "odd"),
                             item_(QStringLiteral("Last"), "last")};
        state->leftoverItems = {item_(QStringLiteral("Gone"), "gone")};
        state->scannedAt = system.now;
        state->scanPhase = ScanPhase::done;
        state->selection = SidebarItem::sweep;
        state->expandedSweepItems = {"odd"};
        settle();
    }
    void settings(const QString& name) {
        const std::string path = "/Users/sam/" + name.toStdString();
        state->ignoredFolders = {"/Users/sam/A", path, "/Users/sam/B"};
        HistoryEntry entry{.id = "1B4E28BA-2FA1-11D2-883F-0016D3CCA427", .date = system.now};
        entry.summary = name.toStdString();
        state->history = {entry};
        state->selection = SidebarItem::settings;
        window().resize(1100, 1500);
        settle();
    }

    // Each text on view, and where it is drawn in the window.
    struct Drawn {
        std::string text;
        QRectF place;
        QRectF room;  // of what it belongs to
    };
    // The last line of widely set ones has its spacing below its room.
    [[nodiscard]] static QRectF roomOf(const QQuickItem& words) {
        const qreal spacing = words.property("lineSpacing").toReal();
        return words.mapRectToScene(QRectF(0, 0, words.width(), words.height() + spacing));
    }
    static void collect(const QQuickItem& above, std::vector<Drawn>& found) {
        for (const QQuickItem* child : above.childItems()) {
            if (!child->isVisible() || child->opacity() == 0) continue;
            if (child->inherits("QQuickText") && !child->property("text").toString().isEmpty()) {
                found.push_back({child->property("text").toString().first(1).toStdString() +
                                     "… in " + above.objectName().toStdString(),
                                 child->mapRectToScene(child->boundingRect()), roomOf(above)});
            }
            collect(*child, found);
        }
    }
    // No text lies over another or outside of its own room, a line for each that does.
    [[nodiscard]] std::vector<std::string> strays() {
        std::vector<Drawn> drawn;
        collect(*window().contentItem(), drawn);
        EXPECT_FALSE(drawn.empty());
        std::vector<std::string> wrong;
        const QRectF whole(QPointF(), QSizeF(window().size()));
        for (const Drawn& each : drawn) {
            if (!each.room.adjusted(-1, -1, 1, 1).contains(each.place)) {
                wrong.push_back(each.text + " leaves its room");
            }
            if (each.place.left() < 0 || each.place.right() > whole.right()) {
                wrong.push_back(each.text + " leaves the window");
            }
            for (const Drawn& other : drawn) {
                if (&other <= &each) continue;
                const QRectF both = each.place & other.place;
                if (both.width() > 1 && both.height() > 3) {
                    wrong.push_back(each.text + " lies over " + other.text);
                }
            }
        }
        return wrong;
    }
    // What lies over everything else, or null.
    [[nodiscard]] static const QQuickItem* popup(const QQuickItem& above) {
        for (const QQuickItem* child : above.childItems()) {
            if (!child->isVisible()) continue;
            if (child->inherits("QQuickPopupItem")) return child;
            if (const QQuickItem* found = popup(*child)) return found;
        }
        return nullptr;
    }
    // Whether two pictures of the window are alike but for these places.
    [[nodiscard]] static bool areAlike(QImage first, QImage second, const QList<QRectF>& but) {
        for (QImage* image : {&first, &second}) {
            QPainter painter(image);
            for (const QRectF& place : but) painter.fillRect(place, Qt::black);
        }
        return first == second;
    }
    [[nodiscard]] std::string spoken(const QString& objectName) {
        return QAccessible::queryAccessibleInterface(&item(objectName))
            ->text(QAccessible::Name)
            .toStdString();
    }
};

TEST_P(Names, StayInTheirRowOfTheReview) {
    review(QStringLiteral("Plain"));
    const QImage plain = picture();
    review(GetParam().name);
    EXPECT_EQ(item(QStringLiteral("row:oddRow")).height(), 42);
    EXPECT_THAT(strays(), testing::IsEmpty());
    const QList<QRectF> own{place(QStringLiteral("row:oddRow")),
                            place(QStringLiteral("row:oddPanel"))};
    EXPECT_TRUE(areAlike(plain, picture(), own));
    EXPECT_EQ(item(QStringLiteral("row:oddPanel")).height(),
              item(QStringLiteral("row:oddPanel")).implicitHeight());
    EXPECT_EQ(spoken(QStringLiteral("row:oddRow")).find(GetParam().name.toStdString()), 0U);
}

TEST_P(Names, StayInTheirRowsOfTheSettings) {
    settings(QStringLiteral("Plain"));
    const QImage plain = picture();
    settings(GetParam().name);
    EXPECT_THAT(strays(), testing::IsEmpty());
    EXPECT_TRUE(areAlike(plain, picture(),
                         {place(QStringLiteral("ignored1")), place(QStringLiteral("sweep0"))}));
    EXPECT_NE(spoken(QStringLiteral("ignored1")).find(GetParam().name.toStdString()),
              std::string::npos);
    EXPECT_NE(spoken(QStringLiteral("sweep0")).find(GetParam().name.toStdString()),
              std::string::npos);
}

TEST_P(Names, StayInTheLineThatTellsWhereTheScanIs) {
    show(ScanPhase::scanning);
    state->scanLocation = GetParam().name.toStdString();
    settle();
    EXPECT_THAT(strays(), testing::IsEmpty());
}

// Nothing of the window is larger than the window, also what tells more of a name.
TEST_P(Names, AreToldWithinTheWindow) {
    settings(GetParam().name);
    item(QStringLiteral("ignored1")).forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Up);
    key(Qt::Key_Down);
    ASSERT_EQ(focused(), QStringLiteral("ignored1"));
    const QQuickItem* const told = popup(*window().contentItem());
    ASSERT_NE(told, nullptr);
    const QRectF place = told->mapRectToScene(QRectF(QPointF(), told->size()));
    std::vector<Drawn> words;
    collect(*told, words);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_TRUE(place.contains(words.front().place)) << words.front().place.height();
    EXPECT_TRUE(QRectF(QPointF(), QSizeF(window().size())).contains(place))
        << place.x() << ' ' << place.y() << ' ' << place.width() << ' ' << place.height();
}

INSTANTIATE_TEST_SUITE_P(Odd, Names, testing::ValuesIn(oddNames),
                         [](const auto& info) { return info.param.title; });

}  // namespace
}  // namespace morvane
