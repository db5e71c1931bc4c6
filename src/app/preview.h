#pragma once

#include <QObject>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <memory>
#include <optional>

#include "app/options.h"
#include "app/small_windows.h"
#include "app/untimely_end.h"
#include "app/window_memory.h"
#include "core/app_state.h"
#include "platform/folder/effect_file.h"
#include "platform/folder/folder_platform.h"
#include "platform/linux/appearance.h"
#include "platform/linux/application_windows.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/qt_executor.h"
#include "platform/linux/tray.h"
#include "services/feed/feed_updater.h"
#include "services/updater.h"
#include "tasks/pool.h"
#include "tasks/scope.h"
#include "ui/screens/screens.h"
#include "ui/window/window_model.h"

namespace morvane {

// The program on a disk in a folder, in windows of a Linux desktop. Made in the order in which its
// parts stand on one another. Main thread.
class Preview final : public QObject, private screens::Windows {
    Q_OBJECT

public:
    Preview(std::unique_ptr<folder::FolderPlatform> system, const PreviewOptions& options,
            std::optional<folder::EffectFile> effects);
    // A removal under way is finished and recorded first.
    ~Preview() override;

    // Whether the window could be made.
    [[nodiscard]] bool isOpen() const { return window_ != nullptr; }

private:
    void open(std::string_view identifier) override;
    [[nodiscard]] UpdateService& updateService();
    void openWindow();
    void followAppearance(std::optional<bool> dark);
    void followTray();
    void updateTray();
    void showMainWindow();
    void finishWithoutWindow();
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<folder::FolderPlatform> system_;
    std::optional<folder::EffectFile> effects_;
    linuxdesktop::QtExecutor executor_;
    Pool pool_;
    QDBusConnection bus_;
    linuxdesktop::LinuxDesktop desktop_;
    linuxdesktop::ApplicationWindows windows_;
    linuxdesktop::Appearance appearance_;
    linuxdesktop::Tray tray_;
    std::unique_ptr<Scope> scope_;
    std::shared_ptr<AppState> state_;
    std::unique_ptr<SmallWindows> smallWindows_;
    std::unique_ptr<FeedUpdater> feed_;
    std::unique_ptr<Updater> updater_;
    std::unique_ptr<screens::Screens> screens_;
    std::unique_ptr<WindowModel> model_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
    std::unique_ptr<WindowMemory> windowMemory_;
    TaskHandle startup_;
    Store::Subscription trayFollows_;
    bool isRemoving_ = false;  // as it was told last
    std::optional<UntimelyEnd> untimelyEnd_;
};

}  // namespace morvane
