#include "ui/window/review_list.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <set>

#include "ui-window/review_groups.h"

namespace morvane::test {
namespace {

class ReviewListTest : public testing::Test {
protected:
    [[nodiscard]] QString key(int row) const {
        return list_.data(list_.index(row), ReviewList::keyRole).toString();
    }
    [[nodiscard]] std::set<QString> keys() const {
        std::set<QString> keys;
        for (int row = 0; row < list_.rowCount(); ++row) keys.insert(key(row));
        return keys;
    }
    [[nodiscard]] double shownTop(const QString& wanted) const {
        for (int row = 0; row < list_.rowCount(); ++row) {
            if (key(row) == wanted) {
                return list_.data(list_.index(row), ReviewList::topRole).toDouble();
            }
        }
        ADD_FAILURE() << wanted.toStdString() << " is not shown";
        return -1;
    }

    ReviewList list_{nullptr};
    QAbstractItemModelTester tester_{&list_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ReviewListTest, HoldsThreeScreensOfRowsHoweverManyThereAre) {
    list_.setViewport(0, 600);
    list_.setGroups({group("A", "a", 10'000)});
    EXPECT_EQ(list_.contentHeight(), 4 + 44 + 420'000 + 20);
    EXPECT_EQ(list_.rowCount(), 43);  // down to 1,800: a header and 42 rows
    list_.setViewport(200'000, 600);
    EXPECT_EQ(list_.rowCount(), 44);  // from 199,400 to 201,200
    EXPECT_EQ(key(0), "row:a4746");
    list_.setViewport(419'468, 600);  // the end
    EXPECT_EQ(list_.rowCount(), 43);  // from 418,268
    EXPECT_EQ(key(0), "row:a9957");
}

TEST_F(ReviewListTest, KeepsTheRowsThatStayWhileItIsScrolled) {
    list_.setGroups({group("A", "a", 1000)});
    list_.setViewport(10'000, 500);
    const QSignalSpy inserted(&list_, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&list_, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy changed(&list_, &QAbstractItemModel::dataChanged);
    const QSignalSpy reset(&list_, &QAbstractItemModel::modelReset);
    list_.setViewport(10'042, 500);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(ReviewListTest, OpeningARowFarAboveLeavesWhatIsOnViewInPlace) {
    auto groups = std::vector{group("A", "a", 10'000)};
    list_.setGroups(groups);
    const double top = 48 + 9'000 * 42.0;
    list_.setViewport(top - 13, 600);
    QSignalSpy shifted(&list_, &ReviewList::shifted);
    openRow(groups[0].rows[5'000]);
    list_.setGroups(groups);
    list_.setPanelHeight("row:a5000", 137);
    double distance = 0;
    for (const auto& signal : shifted) distance += signal.at(0).toDouble();
    EXPECT_EQ(distance, 137);
    EXPECT_EQ(shownTop("row:a9000"), top + 137);
}

TEST_F(ReviewListTest, RowsThatComeInAboveLeaveWhatIsOnViewInPlace) {
    list_.setGroups({group("B", "b", 500)});
    list_.setViewport(5'000, 600);
    const QString first = key(list_.rowCount() / 2);
    const double before = shownTop(first);
    QSignalSpy shifted(&list_, &ReviewList::shifted);
    list_.setGroups({group("A", "a", 100), group("B", "b", 500)});
    ASSERT_EQ(shifted.count(), 1);
    EXPECT_EQ(shifted.at(0).at(0).toDouble(), 44 + 4'200 + 14);
    EXPECT_EQ(shownTop(first), before + 44 + 4'200 + 14);
}

TEST_F(ReviewListTest, AtTheTopWhatComesInIsSeen) {
    list_.setGroups({group("B", "b", 500)});
    list_.setViewport(0, 600);
    const QSignalSpy shifted(&list_, &ReviewList::shifted);
    list_.setGroups({group("A", "a", 100), group("B", "b", 500)});
    EXPECT_EQ(shifted.count(), 0);
    EXPECT_EQ(key(0), "group:A");
}

TEST_F(ReviewListTest, WhatFollowsARowThatWentStaysInPlace) {
    auto groups = std::vector{group("A", "a", 500)};
    list_.setGroups(groups);
    list_.setViewport(48 + 100 * 42.0, 600);
    QSignalSpy shifted(&list_, &ReviewList::shifted);
    groups[0].rows.erase(groups[0].rows.begin() + 90, groups[0].rows.begin() + 101);
    list_.setGroups(groups);
    ASSERT_EQ(shifted.count(), 1);
    EXPECT_EQ(shifted.at(0).at(0).toDouble(), -11 * 42.0);
}

TEST_F(ReviewListTest, TicksWithoutMovingOrMakingARow) {
    auto groups = std::vector{group("A", "a", 500)};
    list_.setGroups(groups);
    list_.setViewport(0, 600);
    const QSignalSpy inserted(&list_, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removed(&list_, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy changed(&list_, &QAbstractItemModel::dataChanged);
    groups[0].rows[3].state = CheckState::on;
    list_.setGroups(groups);
    EXPECT_EQ(inserted.count() + removed.count(), 0);
    EXPECT_EQ(changed.count(), 1);
    const QVariantMap entry = list_.data(list_.index(4), ReviewList::entryRole).toMap();
    EXPECT_EQ(entry.value("state").toString(), "on");
    list_.setGroups(groups);
    EXPECT_EQ(changed.count(), 1) << "nothing was another";
}

TEST_F(ReviewListTest, FollowsAnotherOrderOfTheSameRows) {
    auto groups = std::vector{group("A", "a", 5)};
    list_.setViewport(0, 600);
    list_.setGroups(groups);
    std::swap(groups[0].rows[0], groups[0].rows[4]);
    list_.setGroups(groups);
    EXPECT_EQ(key(1), "row:a4");
    EXPECT_EQ(key(5), "row:a0");
    EXPECT_EQ(keys().size(), 6U);
}

TEST_F(ReviewListTest, GroupsComeAndGo) {
    list_.setViewport(0, 600);
    list_.setGroups({group("A", "a", 3), group("B", "b", 3)});
    list_.setGroups({group("B", "b", 3)});
    EXPECT_EQ(key(0), "group:B");
    EXPECT_EQ(list_.rowCount(), 4);
    list_.setGroups({});
    EXPECT_EQ(list_.rowCount(), 0);
    EXPECT_EQ(list_.cards().size(), 0);
    EXPECT_EQ(list_.first(), "");
}

TEST_F(ReviewListTest, KnowsTheNeighboursForTheKeyboard) {
    list_.setGroups({group("A", "a", 2), group("B", "b", 1)});
    EXPECT_EQ(list_.first(), "group:A");
    EXPECT_EQ(list_.neighbour("row:a1", 1), "group:B");
    EXPECT_EQ(list_.neighbour("group:B", 1), "row:b0");
    EXPECT_EQ(list_.neighbour("row:b0", 1), "row:b0");
    EXPECT_EQ(list_.neighbour("group:A", -1), "group:A");
    EXPECT_EQ(list_.topOf("row:a1"), 90);
    EXPECT_EQ(list_.heightOf("group:A"), 44);
    EXPECT_EQ(list_.heightOf("row:gone"), 0);
}

TEST_F(ReviewListTest, SurvivesAnyOrderOfChangesAndScrolling) {
    unsigned state = 7;
    const auto random = [&state](int below) {
        state = state * 1664525U + 1013904223U;
        return static_cast<int>((state >> 8) % static_cast<unsigned>(below));
    };
    for (int turn = 0; turn < 400; ++turn) {
        std::vector<screens::ReviewGroup> groups;
        for (const char* name : {"A", "B", "C"}) {
            if (random(4) == 0) continue;
            groups.push_back(group(name, name, random(60)));
            for (screens::ReviewRow& row : groups.back().rows) {
                if (random(5) == 0) openRow(row);
            }
        }
        list_.setViewport(random(4000) - 200, 50 + random(700));
        list_.setGroups(groups);
        list_.setPanelHeight("row:A" + QString::number(random(60)), 20 + random(300));
        double last = -1;
        for (int row = 0; row < list_.rowCount(); ++row) {
            const double top = list_.data(list_.index(row), ReviewList::topRole).toDouble();
            ASSERT_GT(top, last);
            last = top;
        }
    }
}

}  // namespace
}  // namespace morvane::test
