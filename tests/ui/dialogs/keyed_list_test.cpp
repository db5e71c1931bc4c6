#include "ui/window/keyed_list.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace morvane {
namespace {

QVariantMap entry(const QString& id, int value = 0) {
    return {{QStringLiteral("id"), id}, {QStringLiteral("value"), value}};
}

QVariantList entries(const QString& ids) {
    QVariantList list;
    for (const QChar id : ids) list.append(entry(QString(id)));
    return list;
}

// Every list is watched for what a model must never do.
class KeyedLists : public testing::Test {
protected:
    [[nodiscard]] std::string keys() const {
        std::string text;
        for (int row = 0; row < list.rowCount(); ++row) {
            text += list.data(list.index(row), KeyedList::keyRole).toString().toStdString();
        }
        return text;
    }

    KeyedList list;
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy changed{&list, &KeyedList::dataChanged};
    QSignalSpy inserted{&list, &KeyedList::rowsInserted};
    QSignalSpy removed{&list, &KeyedList::rowsRemoved};
    QSignalSpy reset{&list, &KeyedList::modelReset};
};

TEST_F(KeyedLists, ShowTheirEntriesAtOnce) {
    list.setEntries(entries(QStringLiteral("abc")));
    EXPECT_EQ(keys(), "abc");
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(list.placeOf(QStringLiteral("c")), 2);
    EXPECT_EQ(list.placeOf(QStringLiteral("x")), -1);
    EXPECT_EQ(list.keyAt(3), QString());
}

TEST_F(KeyedLists, TouchOnlyTheRowThatChanges) {
    QVariantList now = entries(QStringLiteral("abc"));
    list.setEntries(now);
    now[1] = entry(QStringLiteral("b"), 7);
    list.setEntries(now);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(removed.size(), 0);
}

TEST_F(KeyedLists, GoFromAnyListToAnyOther) {
    for (const QString& ids : {QStringLiteral("abc"), QStringLiteral("bcd"), QStringLiteral("dcb"),
                               QStringLiteral("xay"), QString(), QStringLiteral("aab"),
                               QStringLiteral("ba"), QStringLiteral("bab")}) {
        list.setEntries(entries(ids));
        EXPECT_EQ(keys(), ids.toStdString());
    }
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(KeyedLists, HaveRowsForTheirWindowAndForWhatIsKept) {
    list.setMost(3);
    list.setEntries(entries(QStringLiteral("abcdefghij")));
    EXPECT_EQ(keys(), "abc");
    list.setFirst(5);
    EXPECT_EQ(keys(), "fgh");
    EXPECT_EQ(list.data(list.index(0), KeyedList::placeRole).toInt(), 5);
    list.setKept({QStringLiteral("b"), QStringLiteral("j"), QStringLiteral("nothing")});
    EXPECT_EQ(keys(), "bfghj");
    list.setFirst(100);
    EXPECT_EQ(keys(), "bj");
    list.setFirst(-4);
    EXPECT_EQ(keys(), "abcj");
}

}  // namespace
}  // namespace morvane
