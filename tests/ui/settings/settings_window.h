#pragma once

#include <QAccessible>

#include "ui/window_test.h"

namespace morvane {

// The settings on view.
class SettingsWindow : public WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        state->selection = SidebarItem::settings;
        settle();
    }

    // Until the item is on view.
    void awaitItem(const QString& objectName) {
        EXPECT_TRUE(loop.runUntil([&] { return find(objectName) != nullptr; }));
        settle();
    }
    [[nodiscard]] QString text(const QString& objectName) {
        return item(objectName).property("text").toString();
    }
    [[nodiscard]] QAccessibleInterface& spoken(const QString& objectName) {
        return *QAccessible::queryAccessibleInterface(&item(objectName));
    }
    [[nodiscard]] std::string spokenName(const QString& objectName) {
        return spoken(objectName).text(QAccessible::Name).toStdString();
    }
    void focus(const QString& objectName) {
        item(objectName).forceActiveFocus(Qt::TabFocusReason);
        settle();
    }
};

}  // namespace morvane
