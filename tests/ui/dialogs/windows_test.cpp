// The small windows as they stand on the screen.

#include <QTest>

#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/link_note.h"
#include "ui/dialogs/update_notice.h"
#include "ui/window_test.h"

namespace morvane {
namespace {

class SmallWindowsOnView : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        scope.emplace(Runtime{loop, pool});
        chooser.emplace(state->platform(), *scope);
        engine().setInitialProperties(
            {{QStringLiteral("chooser"), QVariant::fromValue(&*chooser)},
             {QStringLiteral("note"), QVariant::fromValue(&note)},
             {QStringLiteral("notice"), QVariant::fromValue(&notice)},
             {QStringLiteral("mainWindow"), QVariant::fromValue(&window())}});
        engine().load(QUrl(QStringLiteral("qrc:/Morvane/Window/Dialogs.qml")));
        ASSERT_EQ(engine().rootObjects().size(), 2);
    }
    void TearDown() override {
        WindowTest::TearDown();
        chooser.reset();
        scope->cancel();
        EXPECT_TRUE(loop.runUntil([this] { return scope->isEmpty(); }));
    }

    // The small window on view, or null.
    [[nodiscard]] QQuickWindow* small() {
        for (QWindow* each : QGuiApplication::topLevelWindows()) {
            if (each != &window() && each->isVisible()) return qobject_cast<QQuickWindow*>(each);
        }
        return nullptr;
    }
    void openChooser() {
        chooser->choose({"Ignore", "A message.", "/Users/sam"},
                        [this](const auto& folders) { chosen = folders; });
        EXPECT_TRUE(loop.runUntil([this] { return scope->isEmpty(); }));
        settle();
        activate();
    }
    void activate() {
        ASSERT_NE(small(), nullptr);
        small()->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(small()));
    }
    [[nodiscard]] std::string focusedThere() {
        const QQuickItem* const item = small()->activeFocusItem();
        return item == nullptr ? "" : item->objectName().toStdString();
    }
    void keyThere(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(small(), key, modifiers);
        EXPECT_TRUE(loop.runUntil([this] { return scope->isEmpty(); }));
        settle();
    }

    std::optional<Scope> scope;
    std::optional<FolderChooser> chooser;
    LinkNote note;
    UpdateNotice notice;
    std::optional<std::vector<Path>> chosen;
};

TEST_F(SmallWindowsOnView, FoldersAreChosenByKeyboardAlone) {
    for (const char* name : {"A", "B", "B/C", "B/D"}) files.addFolder(home(name));
    openChooser();
    EXPECT_EQ(small()->modality(), Qt::WindowModal);
    EXPECT_EQ(focusedThere(), "folder0");
    keyThere(Qt::Key_Down);
    keyThere(Qt::Key_Down);
    EXPECT_EQ(focusedThere(), "folder1");
    keyThere(Qt::Key_Right);
    keyThere(Qt::Key_A, Qt::ControlModifier);
    keyThere(Qt::Key_Return);
    EXPECT_EQ(small(), nullptr);
    ASSERT_TRUE(chosen);
    EXPECT_THAT(*chosen, testing::ElementsAre(home("B/C"), home("B/D")));
}

TEST_F(SmallWindowsOnView, EscapeAndTheCloseButtonDismissTheChooser) {
    openChooser();
    chosen.emplace();
    keyThere(Qt::Key_Escape);
    EXPECT_EQ(small(), nullptr);
    EXPECT_FALSE(chosen);
    openChooser();
    chosen.emplace();
    small()->close();
    EXPECT_FALSE(chosen);
    openChooser();
    EXPECT_TRUE(chooser->isOpen());
}

TEST_F(SmallWindowsOnView, ADoubleClickGoesIntoAFolder) {
    files.addFolder(home("A/Inside"));
    openChooser();
    auto* const line = small()->activeFocusItem();
    ASSERT_EQ(line->objectName().toStdString(), "folder0");
    const QPoint middle = line->mapToScene({line->width() / 2, line->height() / 2}).toPoint();
    QTest::mouseClick(small(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(chooser->chosen(), QStringLiteral("A"));
    QTest::mouseDClick(small(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(chooser->location(), QStringLiteral("/Users/sam/A"));
}

TEST_F(SmallWindowsOnView, TheKeyboardBeginsAtTheMainButtonOfANoteAndOfANotice) {
    note.show("x-apple.systempreferences:com.apple.Notifications-Settings.extension");
    settle();
    activate();
    EXPECT_EQ(focusedThere(), "linkClose");
    keyThere(Qt::Key_Escape);
    notice.show({.kind = UpdateMessage::Kind::found,
                 .title = "t",
                 .notes = "One\nTwo",
                 .action = "Download",
                 .dismiss = "Not Now"});
    settle();
    activate();
    EXPECT_EQ(focusedThere(), "updateAction");
    notice.show({.kind = UpdateMessage::Kind::downloading, .title = "t", .dismiss = "Cancel"});
    settle();
    EXPECT_EQ(focusedThere(), "updateClose");
}

TEST_F(SmallWindowsOnView, EscapeDismissesFromATextThatHasTheKeyboardToo) {
    note.show("x-apple.systempreferences:com.apple.Notifications-Settings.extension");
    settle();
    activate();
    keyThere(Qt::Key_Tab);
    EXPECT_EQ(focusedThere(), "link");
    keyThere(Qt::Key_Escape);
    EXPECT_FALSE(note.isOpen());
    EXPECT_EQ(small(), nullptr);
}

TEST_F(SmallWindowsOnView, TheKeyboardComesBackToWhatOpenedASmallWindow) {
    state->selection = SidebarItem::settings;
    settle();
    item(QStringLiteral("addFolder")).forceActiveFocus(Qt::TabFocusReason);
    openChooser();
    keyThere(Qt::Key_Escape);
    window().requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    settle();
    EXPECT_EQ(focused(), QStringLiteral("addFolder"));
}

TEST_F(SmallWindowsOnView, TheReleaseNotesScrollByKeyboard) {
    std::string notes;
    for (int line = 0; line < 200; ++line) notes += "Line\n";
    notice.show({.kind = UpdateMessage::Kind::found,
                 .title = "t",
                 .notes = notes,
                 .action = "Download",
                 .dismiss = "Not Now"});
    settle();
    activate();
    QQuickItem* const text = find(QStringLiteral("updateNotes"), *small());
    ASSERT_NE(text, nullptr);
    text->forceActiveFocus(Qt::TabFocusReason);
    const double before = text->mapToScene({0, 0}).y();
    keyThere(Qt::Key_Down);
    EXPECT_EQ(text->mapToScene({0, 0}).y(), before - 40);
    keyThere(Qt::Key_Up);
    keyThere(Qt::Key_Up);
    EXPECT_EQ(text->mapToScene({0, 0}).y(), before);
    keyThere(Qt::Key_PageDown);
    EXPECT_LT(text->mapToScene({0, 0}).y(), before - 40);
}

TEST_F(SmallWindowsOnView, ANoteAndANoticeStandAndClose) {
    note.show("x-apple.systempreferences:com.apple.Notifications-Settings.extension");
    settle();
    activate();
    EXPECT_EQ(small()->title(), QStringLiteral("System Settings"));
    keyThere(Qt::Key_Escape);
    EXPECT_EQ(small(), nullptr);
    EXPECT_FALSE(note.isOpen());
    std::string notes;
    for (int line = 0; line < 200; ++line) notes += "<b>Line</b>\n";
    notice.show({.kind = UpdateMessage::Kind::found,
                 .title = std::string(500, 'x'),
                 .text = "A sentence.",
                 .notes = notes,
                 .action = "Download",
                 .dismiss = "Not Now"});
    settle();
    ASSERT_NE(small(), nullptr);
    EXPECT_LT(small()->height(), 600);
    notice.show({.kind = UpdateMessage::Kind::downloading, .title = "t", .dismiss = "Cancel"});
    settle();
    activate();
    keyThere(Qt::Key_Escape);
    EXPECT_EQ(small(), nullptr);
    EXPECT_FALSE(notice.isOpen());
}

}  // namespace
}  // namespace morvane
