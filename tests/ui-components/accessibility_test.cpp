#include <QAccessible>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "stage.h"

namespace morvane {
namespace {

using testing::ElementsAre;

std::string roleName(QAccessible::Role role) {
    switch (static_cast<int>(role)) {
        case QAccessible::Button:
            return "button";
        case QAccessible::CheckBox:
            return "check";
        case QAccessible::RadioButton:
            return "radio";
        case QAccessible::Grouping:
            return "group";
        case QAccessible::StaticText:
            return "text";
        case QAccessible::ProgressBar:
            return "progress";
        default:
            return std::to_string(static_cast<int>(role));
    }
}

std::string line(QAccessibleInterface& node) {
    std::string text = roleName(node.role()) + " " + node.text(QAccessible::Name).toStdString();
    const std::string description = node.text(QAccessible::Description).toStdString();
    if (!description.empty()) text += " (" + description + ")";
    const QAccessible::State state = node.state();
    if (state.checkable) text += state.checkStateMixed ? " mixed" : state.checked ? " on" : " off";
    if (state.selected) text += " selected";
    if (state.focused) text += " focused";
    return text;
}

void walk(QAccessibleInterface& node, int depth, std::vector<std::string>& lines) {
    for (int index = 0; index < node.childCount(); ++index) {
        QAccessibleInterface* const child = node.child(index);
        ASSERT_NE(child, nullptr);
        if (child->state().invisible) continue;
        lines.push_back(std::string(static_cast<std::size_t>(depth), '-') + line(*child));
        walk(*child, depth + 1, lines);
    }
}

class Assistive : public testing::Test {
protected:
    Assistive() { QAccessible::setActive(true); }

    // What a screen reader finds below the root, one line a node.
    std::vector<std::string> tree(const char* body) {
        QQuickItem* const root = stage_.show(QString::fromUtf8(body));
        if (root == nullptr) return {stage_.warnings().join(u'\n').toStdString()};
        return now();
    }

    std::vector<std::string> now() {
        std::vector<std::string> lines;
        walk(*QAccessible::queryAccessibleInterface(&stage_.window()), 0, lines);
        return lines;
    }

    // Does to the named item what an assistive client's action does.
    void act(const char* name, const QString& action) {
        auto* const node =
            QAccessible::queryAccessibleInterface(stage_.item(QString::fromLatin1(name)));
        ASSERT_NE(node, nullptr);
        ASSERT_NE(node->actionInterface(), nullptr);
        node->actionInterface()->doAction(action);
    }

    Stage stage_;
};

TEST_F(Assistive, FindsAButtonByItsLabelAndTheLabelNotAgain) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        CapsuleButton { button: ({label: "Scan Again", symbol: "trash", enabled: true}) }
        TextButton { button: ({label: "Allow…", enabled: true, kind: "link"}) } })"),
                ElementsAre("button Scan Again", "button Allow…"));
}

TEST_F(Assistive, HearsThatAControlIsUnavailableAndOnlyThen) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        CapsuleButton { button: ({label: "Delete", enabled: false}) }
        TextButton { button: ({label: "Remove", enabled: false}) }
        CheckBox { name: "Group"; enabled: false }
        CheckBox { name: "Row"; detail: "expanded" }
        Toggle { label: "Show"; enabled: false } })"),
                ElementsAre("button Delete (unavailable)", "button Remove (unavailable)",
                            "check Group (unavailable) off", "check Row (expanded) off",
                            "check Show (unavailable) off"));
}

TEST_F(Assistive, HearsTheThreeStatesOfACheckBox) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        CheckBox { name: "A"; state: "on" }
        CheckBox { name: "B"; state: "off" }
        CheckBox { name: "C"; state: "mixed" }
        Toggle { label: "D"; on: true } })"),
                ElementsAre("check A on", "check B off", "check C mixed", "check D on"));
}

TEST_F(Assistive, FindsTheOptionsOfAChoiceInOneGroup) {
    EXPECT_THAT(
        tree(R"(Item { width: 300; height: 200
        SegmentedControl { label: "Scan automatically"; selected: 1
            options: ["Off", "Weekly"] } })"),
        ElementsAre("group Scan automatically", "-radio Off off", "-radio Weekly on selected"));
}

TEST_F(Assistive, FindsWordsAndFiguresWholeThoughTheyAreCut) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        Words { width: 30; text: "A very long name" }
        Words { text: "silent"; accessible: false }
        Words { text: "" }
        Figures { text: "1.28 GB" }
        SafetyBadge { label: "Safe to sweep" } })"),
                ElementsAre("text A very long name", "text 1.28 GB", "text Safe to sweep"));
}

TEST_F(Assistive, HearsAProgressBarInWholePerCent) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        ProgressTrack { name: "Scan"; fraction: 0.4 }
        ProgressTrack { fraction: 0.4 } })"),
                ElementsAre("progress Scan (40%)"));
}

TEST_F(Assistive, FindsNoDecoration) {
    EXPECT_THAT(tree(R"(Column { width: 300; height: 200
        Card { width: 100; height: 20 }
        Hairline { }
        Icon { name: "trash" }
        IconTile { icon: "trash" }
        Spinner { } })"),
                ElementsAre());
}

TEST_F(Assistive, FindsNoSecondNodeForATooltip) {
    tree(R"(Item { width: 300; height: 200
        CapsuleButton { button: ({label: "Stop", enabled: true, tooltip: "Ends the scan"}) } })");
    stage_.key(Qt::Key_Tab);
    EXPECT_THAT(now(), ElementsAre("button Stop focused"));
}

TEST_F(Assistive, FindsTheTextsOfAFooter) {
    EXPECT_THAT(tree(R"(SelectionFooter { width: 500; size: "12 MB"; count: "3 items selected"
        note: "Goes to the Trash."
        CapsuleButton { button: ({label: "Move to Trash", enabled: true}) } })"),
                ElementsAre("text 12 MB", "text 3 items selected", "text Goes to the Trash.",
                            "button Move to Trash"));
}

TEST_F(Assistive, DoesByAnActionWhatAClickDoes) {
    tree(R"(Column { width: 300; height: 200; property string heard
        CapsuleButton { objectName: "b"; button: ({label: "Stop", enabled: true})
            onPressed: heard += "b" }
        CheckBox { objectName: "c"; onToggled: heard += "c" }
        Toggle { objectName: "t"; label: "On"; onToggled: on => heard += on } })");
    act("b", QAccessibleActionInterface::pressAction());
    act("c", QAccessibleActionInterface::toggleAction());
    act("c", QAccessibleActionInterface::pressAction());
    act("t", QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(stage_.window().rootObject()->property("heard").toString().toStdString(), "bcctrue");
}

TEST_F(Assistive, CannotUseWhatIsUnavailable) {
    tree(R"(Column { width: 300; height: 200; property string heard
        CapsuleButton { objectName: "b"; button: ({label: "Stop", enabled: false})
            onPressed: heard += "b" }
        CheckBox { objectName: "c"; enabled: false; onToggled: heard += "c" } })");
    act("b", QAccessibleActionInterface::pressAction());
    act("c", QAccessibleActionInterface::toggleAction());
    act("c", QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stage_.window().rootObject()->property("heard").toString().toStdString(), "");
}

TEST_F(Assistive, FindsTheFocusOnTheOptionAndNotOnItsGroup) {
    tree(R"(Item { width: 300; height: 200
        SegmentedControl { objectName: "choice"; label: "Sort"; selected: 1
            options: ["Size", "Name"] } })");
    stage_.key(Qt::Key_Tab);
    std::vector<std::string> lines;
    walk(*QAccessible::queryAccessibleInterface(&stage_.window()), 0, lines);
    EXPECT_THAT(lines,
                ElementsAre("group Sort", "-radio Size off", "-radio Name on selected focused"));
}

}  // namespace
}  // namespace morvane
