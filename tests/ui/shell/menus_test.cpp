// The bar of the commands, by keyboard and by pointer.

#include <QTest>

#include "ui/window_test.h"

namespace morvane {
namespace {

class Menus : public WindowTest {
protected:
    [[nodiscard]] bool isOpen(const char* entry) {
        return item(QString::fromUtf8(entry)).property("opened").toBool();
    }
    void pointTo(const char* entry) {
        QTest::mouseMove(&window(), place(QString::fromUtf8(entry)).center().toPoint());
        settle();
    }
    void begin() {
        item(QStringLiteral("menu0")).forceActiveFocus(Qt::TabFocusReason);
        key(Qt::Key_Down);
        EXPECT_TRUE(isOpen("menu0"));
    }
};

TEST_F(Menus, ArrowsGoFromMenuToMenuAroundTheEnds) {
    begin();
    key(Qt::Key_Right);
    EXPECT_FALSE(isOpen("menu0"));
    EXPECT_TRUE(isOpen("menu1"));
    key(Qt::Key_Right);
    EXPECT_TRUE(isOpen("menu0"));
    key(Qt::Key_Left);
    EXPECT_TRUE(isOpen("menu1"));
    EXPECT_FALSE(isOpen("menu0"));
}

TEST_F(Menus, TheKeyboardBeginsAtTheFirstCommandAndComesBackByEscape) {
    begin();
    key(Qt::Key_Right);
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen("menu1"));
    EXPECT_EQ(focused(), QStringLiteral("menu1"));
    key(Qt::Key_Left);
    EXPECT_EQ(focused(), QStringLiteral("menu0"));
    state->scannedAt = system.now;
    key(Qt::Key_Right);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_FALSE(isOpen("menu1"));
    EXPECT_EQ(*state->selection, SidebarItem::sweep);
}

TEST_F(Menus, APressOnAnEntryClosesTheMenuThatItOpened) {
    click(QStringLiteral("menu0"));
    EXPECT_TRUE(isOpen("menu0"));
    click(QStringLiteral("menu0"));
    EXPECT_FALSE(isOpen("menu0"));
}

TEST_F(Menus, ThePointerOpensTheNextMenuOnlyWhileOneIsOpen) {
    pointTo("menu0");
    pointTo("menu1");
    EXPECT_FALSE(isOpen("menu1"));
    click(QStringLiteral("menu1"));
    pointTo("menu0");
    EXPECT_TRUE(isOpen("menu0"));
    EXPECT_FALSE(isOpen("menu1"));
}

}  // namespace
}  // namespace morvane
