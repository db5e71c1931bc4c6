#include <functional>
#include <gtest/gtest.h>

#include "stage.h"

namespace morvane {
namespace {

class Controls : public testing::Test {
protected:
    // Nothing of what a control does may leave a warning.
    void TearDown() override { EXPECT_EQ(stage_.warnings().join(u'\n').toStdString(), ""); }

    QQuickItem* item(const char* name) { return stage_.item(QString::fromLatin1(name)); }
    int count(const char* property) { return root_->property(property).toInt(); }

    Stage stage_;
    QQuickItem* root_ = nullptr;
};

TEST_F(Controls, ClampAProgressTrackToItsWidth) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 600; height: 100
        ProgressTrack { objectName: "under"; width: 200; height: 5; fraction: -0.5 }
        ProgressTrack { objectName: "part"; width: 200; height: 5; fraction: 0.25 }
        ProgressTrack { objectName: "over"; width: 200; height: 5; fraction: 7 }
        ProgressTrack { objectName: "none"; width: 200; height: 5; fraction: NaN } })"));
    ASSERT_NE(root_, nullptr);
    const auto filled = [&](const char* name) {
        const QQuickItem* const fill = item(name)->childItems().at(1);
        return fill->isVisible() ? fill->width() : 0;
    };
    EXPECT_EQ(filled("under"), 0);
    EXPECT_EQ(filled("part"), 50);
    EXPECT_EQ(filled("over"), 200);
    EXPECT_EQ(filled("none"), 0);
}

TEST_F(Controls, PressACheckBoxByPointerAndSpaceButNotByReturn) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 200; height: 100; property int presses: 0
        CheckBox { objectName: "box"; x: 40; y: 40; state: "mixed"; onToggled: ++presses } })"));
    ASSERT_NE(root_, nullptr);
    EXPECT_EQ(item("box")->width(), 16);
    EXPECT_EQ(item("box")->height(), 16);
    stage_.click(*item("box"));
    EXPECT_EQ(count("presses"), 1);
    stage_.key(Qt::Key_Space);
    EXPECT_EQ(count("presses"), 2);
    stage_.key(Qt::Key_Return);
    EXPECT_EQ(count("presses"), 2);
    // What it shows is its owner's to change.
    EXPECT_EQ(item("box")->property("state").toString(), QStringLiteral("mixed"));
}

TEST_F(Controls, PassWhatIsNotEnabledOver) {
    root_ = stage_.show(QStringLiteral(R"(Column { width: 300; height: 200; property int presses: 0
        CheckBox { objectName: "first" }
        CapsuleButton { objectName: "off"; button: ({label: "Delete", enabled: false})
            onPressed: ++presses }
        CapsuleButton { objectName: "on"; button: ({label: "Stop", enabled: true})
            onPressed: ++presses }
        Toggle { objectName: "switch"; label: "Show" } })"));
    ASSERT_NE(root_, nullptr);
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(stage_.focused(), QStringLiteral("first"));
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(stage_.focused(), QStringLiteral("on"));
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(stage_.focused(), QStringLiteral("switch"));
    stage_.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(stage_.focused(), QStringLiteral("on"));
    stage_.key(Qt::Key_Return);
    stage_.key(Qt::Key_Space);
    EXPECT_EQ(count("presses"), 2);
    stage_.click(*item("off"));
    EXPECT_EQ(count("presses"), 2);
}

TEST_F(Controls, LetReturnPressTheFocusedButtonBeforeTheWindowsDefault) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 300; height: 100; property string heard
        Shortcut { sequence: "Return"; onActivated: heard += "default " }
        CapsuleButton { button: ({label: "Stop", enabled: true}); onPressed: heard += "stop " } })"));
    ASSERT_NE(root_, nullptr);
    stage_.key(Qt::Key_Return);
    stage_.key(Qt::Key_Tab);
    stage_.key(Qt::Key_Return);
    EXPECT_EQ(root_->property("heard").toString().toStdString(), "default stop ");
}

TEST_F(Controls, TurnASwitchToWhatItIsNot) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 200; height: 100; property var told: []
        Toggle { objectName: "switch"; label: "Show"; on: true; onToggled: on => told.push(on) } })"));
    ASSERT_NE(root_, nullptr);
    stage_.click(*item("switch"));
    stage_.key(Qt::Key_Space);
    EXPECT_EQ(root_->property("told").toList(), (QVariantList{false, false}));
}

constexpr auto choice = R"(Item { width: 400; height: 100; property var picked: []
    CheckBox { objectName: "before" }
    SegmentedControl { objectName: "choice"; y: 30; label: "Sort"; selected: %1
        options: ["Size", "Name", "Last opened"]; onChosen: index => picked.push(index) }
    CheckBox { objectName: "after"; y: 70 } })";

TEST_F(Controls, GoInsideAChoiceByArrowsAndChooseBySpaceOrReturn) {
    root_ = stage_.show(QString::fromLatin1(choice).arg(1));
    ASSERT_NE(root_, nullptr);
    const auto name = [&] {
        return stage_.window().activeFocusItem()->property("name").toString().toStdString();
    };
    stage_.key(Qt::Key_Tab);
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(name(), "Name");
    stage_.key(Qt::Key_Right);
    EXPECT_EQ(name(), "Last opened");
    stage_.key(Qt::Key_Right);
    EXPECT_EQ(name(), "Last opened");
    stage_.key(Qt::Key_Space);
    stage_.key(Qt::Key_Left);
    stage_.key(Qt::Key_Left);
    EXPECT_EQ(name(), "Size");
    stage_.key(Qt::Key_Return);
    EXPECT_EQ(root_->property("picked").toList(), (QVariantList{2, 0}));
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(stage_.focused().toStdString(), "after");
}

TEST_F(Controls, ShowNoSegmentSelectedWithoutASelection) {
    for (const int selected : {-1, 3, 99}) {
        root_ = stage_.show(QString::fromLatin1(choice).arg(selected));
        ASSERT_NE(root_, nullptr);
        int thumbs = 0;
        for (const QQuickItem* child : item("choice")->childItems()) {
            if (child->property("shown").toBool()) ++thumbs;
        }
        EXPECT_EQ(thumbs, 0) << selected;
        stage_.key(Qt::Key_Tab);
        stage_.key(Qt::Key_Tab);
        EXPECT_TRUE(item("choice")->isAncestorOf(stage_.window().activeFocusItem())) << selected;
    }
}

TEST_F(Controls, ShowTheSelectedSegmentWhereItLies) {
    root_ = stage_.show(QString::fromLatin1(choice).arg(0));
    ASSERT_NE(root_, nullptr);
    const QQuickItem* thumb = nullptr;
    for (const QQuickItem* child : item("choice")->childItems()) {
        if (child->property("shown").toBool()) thumb = child;
    }
    ASSERT_NE(thumb, nullptr);
    EXPECT_TRUE(thumb->isVisible());
    EXPECT_EQ(thumb->x(), 2);
    EXPECT_GT(thumb->width(), 30);
    stage_.theme().setReducedMotion(true);
    item("choice")->setProperty("selected", 2);
    EXPECT_EQ(thumb->x() + thumb->width(), item("choice")->width() - 2);
    EXPECT_EQ(item("choice")->height(), 24);
}

TEST_F(Controls, ShowAFirstSelectionInItsPlaceAtOnce) {
    root_ = stage_.show(QString::fromLatin1(choice).arg(2));
    ASSERT_NE(root_, nullptr);
    const QQuickItem* const thumb = item("choice")->childItems().at(1);
    EXPECT_TRUE(thumb->isVisible());
    EXPECT_EQ(thumb->x() + thumb->width(), item("choice")->width() - 2);
}

TEST_F(Controls, DrawFocusForTheKeyboardAlone) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 200; height: 100
        CheckBox { objectName: "box"; x: 40; y: 40 } })"));
    ASSERT_NE(root_, nullptr);
    const auto ring = [&]() -> const QQuickItem* {
        for (const QQuickItem* child : item("box")->childItems()) {
            if (child->property("distance").isValid()) return child;
        }
        return nullptr;
    };
    ASSERT_NE(ring(), nullptr);
    stage_.click(*item("box"));
    EXPECT_TRUE(item("box")->hasActiveFocus());
    EXPECT_FALSE(ring()->isVisible());
    stage_.key(Qt::Key_Tab);
    EXPECT_TRUE(item("box")->hasActiveFocus());
    EXPECT_TRUE(ring()->isVisible());
    EXPECT_LT(ring()->x(), 0);
}

TEST_F(Controls, ShowATooltipToWhoComesByKeyboardAndHideItWhenTheyLeave) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 400; height: 100
        TextButton { objectName: "again"; symbolOnly: true
            button: ({label: "Scan apps again", symbol: "arrow.clockwise", enabled: true,
                      tooltip: "Scan apps again"}) } })"));
    ASSERT_NE(root_, nullptr);
    const std::function<int(const QQuickItem&)> tipsBelow = [&](const QQuickItem& above) {
        int shown = above.inherits("QQuickPopupItem") && above.isVisible() ? 1 : 0;
        for (const QQuickItem* child : above.childItems()) shown += tipsBelow(*child);
        return shown;
    };
    const auto tips = [&] { return tipsBelow(*stage_.window().contentItem()); };
    EXPECT_EQ(tips(), 0);
    stage_.key(Qt::Key_Tab);
    EXPECT_EQ(tips(), 1);
    stage_.click(*item("again"));
    EXPECT_EQ(tips(), 0);
}

TEST_F(Controls, PutASpinnerInPlaceOfTheWordsOfABusyButton) {
    root_ = stage_.show(QStringLiteral(R"(Item { width: 400; height: 100
        CapsuleButton { objectName: "busy"; large: true
            button: ({label: "Move to Trash", enabled: false, busy: true, kind: "prominent"}) } })"));
    ASSERT_NE(root_, nullptr);
    EXPECT_EQ(item("busy")->width(), 76);  // 16 of spinner with 30 on each side
    EXPECT_EQ(item("busy")->property("name").toString(), QStringLiteral("Move to Trash"));
}

}  // namespace
}  // namespace morvane
