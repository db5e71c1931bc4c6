#pragma once

#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include "platform/platform.h"
#include "tasks/scope.h"
#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/link_note.h"
#include "ui/dialogs/update_notice.h"

namespace morvane {

// The models of the windows beside the main one, and the windows themselves. Main thread.
struct SmallWindows {
    // `scope` outlives this.
    SmallWindows(const Platform& platform, Scope& scope) : chooser(platform, scope) {}

    // Makes the windows, hidden, beside `mainWindow`; false where that failed. The engine owns
    // them and goes before this.
    [[nodiscard]] bool load(QQmlApplicationEngine& engine, QQuickWindow& mainWindow);

    FolderChooser chooser;
    LinkNote note;
    UpdateNotice notice;
};

}  // namespace morvane
