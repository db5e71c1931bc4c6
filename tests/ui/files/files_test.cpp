// Every QML file, created by itself in both appearances: what it needs must be required of its
// maker, and it must say nothing while it is made, shown and taken down.

#include <QFile>
#include <QQmlComponent>
#include <QRegularExpression>
#include <algorithm>

#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/link_note.h"
#include "ui/dialogs/update_notice.h"
#include "ui/symbols/symbol_names.h"
#include "ui/window/keyed_list.h"
#include "ui/window/variant_writer.h"
#include "ui/window_test.h"

namespace morvane {
namespace {

// One file: its folder, its module and its name.
struct QmlFile {
    QString folder;
    QString module;
    QString name;

    [[nodiscard]] QUrl url() const {
        return QUrl(QStringLiteral("qrc:/Morvane/%1/%2").arg(module, name));
    }
    [[nodiscard]] QString text() const {
        QFile file(QStringLiteral(MORVANE_QML_SOURCES "/%1/%2").arg(folder, name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

std::vector<QmlFile> allFiles() {
    std::vector<QmlFile> files;
    for (const QString& each : QStringLiteral(MORVANE_QML_FILES).split(u' ')) {
        const QStringList parts = each.split(u'/');
        files.push_back({parts[0], parts[1], parts[2]});
    }
    return files;
}

// The names of what a file requires of its maker.
QStringList required(const QmlFile& file) {
    // What stands at the depth of the file's own object.
    static const QRegularExpression line(QStringLiteral("^    required property \\S+ (\\w+)"),
                                         QRegularExpression::MultilineOption);
    QStringList names;
    for (auto each = line.globalMatch(file.text()); each.hasNext();) {
        names.append(each.next().captured(1));
    }
    return names;
}

class QmlFiles : public WindowTest, public testing::WithParamInterface<QmlFile> {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        show(ScanPhase::done);
        fillBar();
        overview_ = toVariant(screens->overview.content());
        scope.emplace(Runtime{loop, pool});
        chooser.emplace(state->platform(), *scope);
    }
    void TearDown() override {
        WindowTest::TearDown();
        chooser.reset();
        scope->cancel();
        EXPECT_TRUE(loop.runUntil([this] { return scope->isEmpty(); }));
    }

    [[nodiscard]] QVariant screenOf(const QmlFile& file) {
        if (file.folder == u"overview") return QVariant::fromValue(model().overview());
        if (file.folder == u"review") return QVariant::fromValue(model().sweepReview());
        if (file.folder == u"settings") return QVariant::fromValue(model().settings());
        return QVariant::fromValue(model().sidebar());
    }
    // What a screen tells, by its keys and places: "card.cards.0".
    [[nodiscard]] static QVariant at(const QVariant& told, const char* path) {
        QVariant value = told;
        for (const QString& key : QString::fromLatin1(path).split(u'.')) {
            bool isPlace = false;
            const int place = key.toInt(&isPlace);
            value = isPlace ? value.toList().value(place) : value.toMap().value(key);
        }
        EXPECT_TRUE(value.isValid()) << path;
        return value;
    }
    [[nodiscard]] QVariant overview(const char* path) { return at(overview_, path); }
    [[nodiscard]] QVariant review(const char* path) {
        return at(toVariant(screens->sweepReview.content()), path);
    }
    [[nodiscard]] QVariant card(const QmlFile& file) {
        static const std::map<QString, ScanPhase> phases{
            {QStringLiteral("IdleCard.qml"), ScanPhase::idle},
            {QStringLiteral("ScanningCard.qml"), ScanPhase::scanning},
            {QStringLiteral("SuccessCard.qml"), ScanPhase::success},
            {QStringLiteral("SpotlessCard.qml"), ScanPhase::empty}};
        if (file.name == u"CategoryCard.qml") return overview("card.cards.0");
        if (file.name == u"LeftAloneCard.qml") return overview("card.leftAlone");
        if (const auto phase = phases.find(file.name); phase != phases.end()) {
            show(phase->second);
            overview_ = toVariant(screens->overview.content());
        }
        return overview("card");
    }
    // What a maker would give.
    [[nodiscard]] QVariant value(const QmlFile& file, const QString& name) {
        if (name == u"screen") return screenOf(file);
        if (name == u"model") return QVariant::fromValue(&model());
        if (name == u"shell") return QVariant::fromValue(model().shell());
        if (name == u"window" || name == u"mainWindow") return QVariant::fromValue(&window());
        if (name == u"chooser") return QVariant::fromValue(&*chooser);
        if (name == u"note") return QVariant::fromValue(&note);
        if (name == u"notice") return QVariant::fromValue(&notice);
        if (name == u"scroll") return QVariant::fromValue(find(QStringLiteral("overviewScroll")));
        if (name == u"rows") return QVariant::fromValue(&rows);
        if (name == u"list") return QVariant::fromValue(window().contentItem());
        if (name == u"card") return card(file);
        if (name == u"told") return overview("card");
        if (name == u"leftAlone") return overview("card.leftAlone");
        if (name == u"free") return overview("disk.legendFree");
        if (name == u"disk" && file.folder == u"overview") return overview("disk");
        if (name == u"disk") return at(toVariant(screens->sidebar.content()), "disk");
        if (name == u"section") return at(toVariant(screens->sidebar.content()), "sections.0");
        if (name == u"entry" || name == u"group") return review("groups.0");
        if (name == u"item") return review("groups.0.rows.0");
        if (name == u"panel") {
            press("sweepReview", "groups.rows.open",
                  review("groups.0.rows.0.id").toString().toStdString());
            return review("groups.0.rows.0.panel");
        }
        if (name == u"index") return 0;
        if (name == u"isHeader") return true;
        if (name.startsWith(u"is") || name == u"chosen") return false;
        if (name.startsWith(u"row")) return 44.0;
        return QStringLiteral("Name");
    }
    // Makes it, shows it in the window for a moment, and takes it down.
    void make(const QmlFile& file) {
        QQmlComponent component(&engine(), file.url());
        ASSERT_TRUE(component.isReady()) << qPrintable(component.errorString());
        QVariantMap given;
        for (const QString& name : required(file)) given.insert(name, value(file, name));
        const std::unique_ptr<QObject> made(component.createWithInitialProperties(given));
        ASSERT_NE(made, nullptr) << qPrintable(component.errorString());
        if (auto* item = qobject_cast<QQuickItem*>(made.get())) {
            item->setParentItem(window().contentItem());
            if (item->width() <= 0) item->setWidth(320);
            if (item->height() <= 0) item->setHeight(120);
        }
        settle();
        theme().setDark(!theme().dark());
        settle();
    }

    std::optional<Scope> scope;
    std::optional<FolderChooser> chooser;
    LinkNote note;
    UpdateNotice notice;
    KeyedList rows;

private:
    QVariant overview_;
};

TEST_P(QmlFiles, AreMadeByThemselvesInLightAndThenDark) {
    theme().setDark(false);
    make(GetParam());
}

TEST_P(QmlFiles, AreMadeByThemselvesInDarkAndThenLight) {
    theme().setDark(true);
    make(GetParam());
}

class QmlTexts : public testing::TestWithParam<QmlFile> {};

// The texts of a program are told by its models; QML has none of its own.
TEST_P(QmlTexts, HoldNoWordOfTheirOwn) {
    static const QRegularExpression told(
        QStringLiteral("(?:^|[ {;])(?:text|title|name|label|detail|description|tooltip|"
                       "placeholderText|Accessible\\.name|Accessible\\.description):([^\\n]*)"));
    static const QRegularExpression literal(QStringLiteral("\"([^\"]*)\""));
    static const QRegularExpression letter(QStringLiteral("\\p{L}"));
    const QString text = GetParam().text();
    ASSERT_FALSE(text.isEmpty());
    for (auto line = told.globalMatch(text); line.hasNext();) {
        const QString said = line.next().captured(1);
        for (auto each = literal.globalMatch(said); each.hasNext();) {
            const QString words = each.next().captured(1);
            const bool isSymbol = std::ranges::find(symbolNames, words.toStdString()) !=
                                  std::ranges::end(symbolNames);
            EXPECT_TRUE(isSymbol || !words.contains(letter)) << qPrintable(said);
        }
    }
}

TEST_P(QmlTexts, StayShortEnoughToReadAtOnce) {
    EXPECT_LE(GetParam().text().count(u'\n'), 250);
}

std::ostream& operator<<(std::ostream& out, const QmlFile& file) {
    return out << qPrintable(file.url().toString());
}

std::string nameOf(const testing::TestParamInfo<QmlFile>& file) {
    return (file.param.folder + u'_' + file.param.name.chopped(4)).toStdString();
}

INSTANTIATE_TEST_SUITE_P(, QmlFiles, testing::ValuesIn(allFiles()), nameOf);
INSTANTIATE_TEST_SUITE_P(, QmlTexts, testing::ValuesIn(allFiles()), nameOf);

}  // namespace
}  // namespace morvane
