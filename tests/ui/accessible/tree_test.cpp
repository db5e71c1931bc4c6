// The accessible tree of the whole window, walked in process on every screen and in every phase.

#include <QAccessible>
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "ui/window_test.h"

namespace morvane {
namespace {

struct Node {
    QAccessibleInterface* spoken = nullptr;
    QAccessible::Role role = QAccessible::NoRole;
    QAccessible::State state;
    QString name;
    QString description;
};

std::ostream& operator<<(std::ostream& out, const Node& node) {
    return out << "role " << node.role << " \"" << qPrintable(node.name) << "\" (\""
               << qPrintable(node.description) << "\")";
}

void walk(QAccessibleInterface& above, std::vector<Node>& nodes) {
    for (int place = 0; place < above.childCount(); ++place) {
        QAccessibleInterface* const each = above.child(place);
        ASSERT_NE(each, nullptr);
        if (each->state().invisible) continue;
        nodes.push_back({each, each->role(), each->state(), each->text(QAccessible::Name),
                         each->text(QAccessible::Description)});
        walk(*each, nodes);
    }
}

// What a user presses or ticks.
bool isControl(const Node& node) {
    static const std::set<QAccessible::Role> controls{QAccessible::Button, QAccessible::CheckBox,
                                                      QAccessible::RadioButton,
                                                      QAccessible::MenuItem, QAccessible::Link};
    return controls.contains(node.role);
}

struct Case {
    const char* name;
    SidebarItem screen;
    ScanPhase phase;
    bool opens = false;  // a row of the review
};

class AccessibleTree : public WindowTest, public testing::WithParamInterface<Case> {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        QAccessible::setActive(true);
        fillBar();
        show(GetParam().phase);
        state->selection = GetParam().screen;
        settle();
        if (GetParam().opens) {
            const auto groups = screens->sweepReview.content().groups;
            press("sweepReview", "groups.rows.open", groups.at(0).rows.at(0).id);
            settle();
        }
        walk(*QAccessible::queryAccessibleInterface(&window()), nodes);
        ASSERT_GT(nodes.size(), 10U);
    }

    std::vector<Node> nodes;
};

TEST_P(AccessibleTree, EverythingInItHasASizeWithinTheWindow) {
    const QRect whole = window().geometry();
    for (const Node& node : nodes) {
        const QRect place = node.spoken->rect();
        EXPECT_GT(place.width(), 0) << node;
        EXPECT_GT(place.height(), 0) << node;
        EXPECT_LE(place.width(), whole.width()) << node;
    }
}

TEST_P(AccessibleTree, EveryControlHasANameAndDoesByItsActionWhatAClickDoes) {
    for (const Node& node : nodes) {
        if (!isControl(node)) continue;
        EXPECT_FALSE(node.name.trimmed().isEmpty()) << node;
        QAccessibleActionInterface* const actions = node.spoken->actionInterface();
        ASSERT_NE(actions, nullptr) << node;
        EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()) ||
                    actions->actionNames().contains(QAccessibleActionInterface::toggleAction()))
            << node;
        if (node.role == QAccessible::CheckBox || node.role == QAccessible::RadioButton) {
            EXPECT_TRUE(node.state.checkable) << node;
        }
    }
}

TEST_P(AccessibleTree, WhatTakesTheKeyboardHasANameAndCanBeUsed) {
    int stops = 0;
    for (const Node& node : nodes) {
        if (!node.state.focusable) continue;
        ++stops;
        EXPECT_FALSE(node.name.trimmed().isEmpty()) << node;
        EXPECT_NE(node.description, u"unavailable") << node;
    }
    EXPECT_GT(stops, 0);
    EXPECT_LE(std::ranges::count_if(nodes, [](const Node& node) { return node.state.focused; }), 1);
}

TEST_P(AccessibleTree, WhatTheKeyboardComesToByTabIsTheOneFocusedNode) {
    std::set<QString> seen;
    for (int step = 0; step < 40; ++step) {
        key(Qt::Key_Tab);
        QAccessibleInterface* const now =
            QAccessible::queryAccessibleInterface(&window())->focusChild();
        ASSERT_NE(now, nullptr) << "after " << step << " steps";
        EXPECT_FALSE(now->text(QAccessible::Name).isEmpty()) << step;
        EXPECT_FALSE(now->state().invisible) << step;
        seen.insert(now->text(QAccessible::Name));
        nodes.clear();
        walk(*QAccessible::queryAccessibleInterface(&window()), nodes);
        EXPECT_EQ(std::ranges::count_if(nodes, [](const Node& node) { return node.state.focused; }),
                  1)
            << qPrintable(now->text(QAccessible::Name));
    }
    EXPECT_GE(seen.size(), 2U);
}

TEST_P(AccessibleTree, ARowStandsInAListAndAnOptionInItsGroup) {
    for (const Node& node : nodes) {
        const QAccessibleInterface* const above = node.spoken->parent();
        ASSERT_NE(above, nullptr) << node;
        if (node.role == QAccessible::ListItem) {
            EXPECT_EQ(above->role(), QAccessible::List) << node;
        }
        if (node.role == QAccessible::RadioButton) {
            EXPECT_EQ(above->role(), QAccessible::Grouping) << node;
        }
    }
}

std::ostream& operator<<(std::ostream& out, const Case& each) {
    return out << each.name;
}

INSTANTIATE_TEST_SUITE_P(
    , AccessibleTree,
    testing::Values(Case{"OverviewBeforeAScan", SidebarItem::overview, ScanPhase::idle},
                    Case{"OverviewInAScan", SidebarItem::overview, ScanPhase::scanning},
                    Case{"OverviewOfWhatWasFound", SidebarItem::overview, ScanPhase::done},
                    Case{"OverviewAfterASweep", SidebarItem::overview, ScanPhase::success},
                    Case{"OverviewOfNothingFound", SidebarItem::overview, ScanPhase::empty},
                    Case{"Review", SidebarItem::sweep, ScanPhase::done},
                    Case{"ReviewWithAnOpenRow", SidebarItem::sweep, ScanPhase::done, true},
                    Case{"ReviewOfNothing", SidebarItem::sweep, ScanPhase::idle},
                    Case{"Settings", SidebarItem::settings, ScanPhase::idle}),
    [](const testing::TestParamInfo<Case>& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace morvane
