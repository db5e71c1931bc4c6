#include "platform/linux/application_windows.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

namespace morvane::linuxdesktop {

void bringWindowsToFront() {
    QWindow* last = nullptr;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        const bool isOwnPlace = window->type() == Qt::Window || window->type() == Qt::Dialog;
        if (!window->isVisible() || !isOwnPlace) continue;
        if (window->visibility() == QWindow::Minimized) window->showNormal();
        window->raise();
        last = window;
    }
    if (last != nullptr) last->requestActivate();
}

bool ApplicationWindows::isActive() const {
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void ApplicationWindows::chooseFolders(const Workspace::FolderPanel& panel, Chosen chosen) {
    if (chooser_) return chooser_(panel, std::move(chosen));
    QTimer::singleShot(0, qGuiApp, [chosen = std::move(chosen)] { chosen(std::nullopt); });
}

}  // namespace morvane::linuxdesktop
