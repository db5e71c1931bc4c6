#include "app/preview.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <utility>

#include "ui/art/app_logo.h"
#include "ui/theme/theme.h"
#include "ui/window/startup_task.h"

namespace morvane {

namespace {

QIcon applicationIcon() {
    QIcon icon;
    for (int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(side / 100.0, side / 100.0);
        paintAppLogo(painter, side >= 64);
        painter.end();
        icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

}  // namespace

Preview::Preview(std::unique_ptr<folder::FolderPlatform> system, const PreviewOptions& options,
                 std::optional<folder::EffectFile> effects)
    : system_(std::move(system)),
      effects_(std::move(effects)),
      executor_(linuxdesktop::RunningClock(system_->host()->now)),
      bus_(QDBusConnection::sessionBus()),
      desktop_(bus_,
               [this](const std::string& link) {
                   if (smallWindows_) smallWindows_->note.show(link);
               }),
      appearance_(bus_),
      tray_(bus_) {
    QGuiApplication::setWindowIcon(applicationIcon());
    system_->start(executor_, {.desktop = effects_ ? nullptr : &desktop_, .windows = &windows_});
    if (effects_) {
        system_->effects().handTo(
            [this](const folder::Effect& effect) { effects_->write(effect); });
    }
    scope_ = std::make_unique<Scope>(Runtime{executor_, pool_});
    state_ = AppState::create(
        {Runtime{executor_, pool_}, system_->platform(), system_->remover(), system_->defaults()});
    // The first steps of a newcomer are still to come: every disk counts as having taken them.
    if (!*state_->hasOnboarded) state_->hasOnboarded = true;
    smallWindows_ = std::make_unique<SmallWindows>(system_->platform(), *scope_);
    windows_.setChooser([this](const Workspace::FolderPanel& panel, auto chosen) {
        smallWindows_->chooser.choose(panel, std::move(chosen));
    });
    untimelyEnd_.emplace([this] { finishWithoutWindow(); });
    updater_ = std::make_unique<Updater>(updateService());
    screens_ = std::make_unique<screens::Screens>(screens::ScreenNeeds{*state_, *updater_, *this});
    model_ = std::make_unique<WindowModel>(*screens_, *state_, *updater_, *scope_);
    engine_ = std::make_unique<QQmlApplicationEngine>();
    engine_->addImportPath(QStringLiteral("qrc:/"));
    followAppearance(options.dark);
    openWindow();
    if (window_ == nullptr) return;
    followTray();
    startup_ =
        scope_->start(startupTask(screens_.get(), state_.get(), [this] { model_->timePassed(); }));
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](auto state) {
        if (state == Qt::ApplicationActive) model_->becameActive();
    });
}

Preview::~Preview() {
    trayFollows_ = {};
    windowMemory_.reset();
    engine_.reset();
    model_.reset();
    screens_.reset();
    updater_.reset();
    feed_.reset();
    // Who waits for a folder to be chosen waits no longer.
    windows_.setChooser(nullptr);
    smallWindows_.reset();
    const auto turnUntil = [](const auto& done) {
        while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    turnUntil([this] { return !state_->isRemoving(); });
    state_->drop();
    system_->defaults().flush();
    system_->processes().endAll();
    scope_->cancel();
    turnUntil([this] { return scope_->isEmpty() && state_->isIdle(); });
    untimelyEnd_.reset();
}

// Nothing is drawn any more, and nothing asked of the window system that has gone.
void Preview::finishWithoutWindow() {
    state_->store().dropObservers();
    executor_.runWithoutLoop([this] { return !state_->isRemoving(); });
    system_->defaults().flush();
    system_->processes().endAll();
}

UpdateService& Preview::updateService() {
    const BundleInfo bundle = system_->platform().bundle;
    // Where effects are written down, a check is one of them.
    if (effects_ || !bundle.updateFeed || !bundle.updateKey) return system_->updates();
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    feed_ = std::make_unique<FeedUpdater>(
        Runtime{executor_, pool_}, system_->defaults(), smallWindows_->notice, bundle,
        FeedUpdater::Options{.downloads = downloads.toStdString()});
    smallWindows_->notice.setPresses(
        {.download = [this] { feed_->download(); },
         .reveal = [this](const std::filesystem::path& file) { desktop_.reveal(file); },
         .dismiss = [this] { feed_->dismiss(); }});
    return *feed_;
}

void Preview::openWindow() {
    engine_->setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(model_.get())}});
    engine_->load(QUrl(QStringLiteral("qrc:/Morvane/Window/Main.qml")));
    if (engine_->rootObjects().isEmpty()) return;
    window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().constFirst());
    if (window_ == nullptr) return;
    const auto followPixels = [this] {
        Theme::of(*engine_).setPixelRatio(window_->effectiveDevicePixelRatio());
    };
    followPixels();
    connect(window_, &QWindow::screenChanged, this, followPixels);
    window_->installEventFilter(this);
    windowMemory_ = std::make_unique<WindowMemory>(*window_, system_->defaults());
    if (!smallWindows_->load(*engine_, *window_)) qWarning("the small windows could not be made");
    // With the first frame the drawing libraries are all there.
    connect(window_, &QQuickWindow::frameSwapped, this, &UntimelyEnd::comeFirst,
            // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): a kind and a flag
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    window_->show();
}

void Preview::followAppearance(std::optional<bool> dark) {
    const auto follow = [this, dark] {
        Theme& theme = Theme::of(*engine_);
        theme.setDark(
            dark.value_or(appearance_.scheme() == linuxdesktop::Appearance::Scheme::dark));
        theme.setReducedMotion(appearance_.reducesMotion());
    };
    follow();
    connect(&appearance_, &linuxdesktop::Appearance::schemeChanged, this, follow);
    connect(&appearance_, &linuxdesktop::Appearance::reducesMotionChanged, this, follow);
}

void Preview::followTray() {
    tray_.setIcon(applicationIcon());
    connect(&tray_, &linuxdesktop::Tray::activated, this, &Preview::showMainWindow);
    // A window that was closed while there was a tray comes back when the tray has gone.
    connect(&tray_, &linuxdesktop::Tray::isPresentChanged, this, [this] {
        if (!tray_.isOnView() && !window_->isVisible()) showMainWindow();
    });
    trayFollows_ = state_->store().observe([this](const ChangedFields&) {
        updateTray();
        if (std::exchange(isRemoving_, state_->isRemoving()) || !isRemoving_) return;
        UntimelyEnd::comeFirst();
    });
    updateTray();
}

void Preview::updateTray() {
    const screens::MenuBarExtra extra = screens_->shell.content().menuBarExtra;
    tray_.setToolTip(QString::fromStdString(extra.label));
    tray_.setShown(extra.visible);
    if (!tray_.isOnView() && !window_->isVisible()) showMainWindow();
}

void Preview::showMainWindow() {
    window_->show();
    window_->raise();
    window_->requestActivate();
}

void Preview::open(std::string_view identifier) {
    if (identifier == "main" && window_ != nullptr) showMainWindow();
    if (effects_) effects_->write({"openWindow", std::string(identifier)});
}

bool Preview::eventFilter(QObject* watched, QEvent* event) {
    if (watched != window_ || event->type() != QEvent::Close) return false;
    if (tray_.isOnView()) return false;
    QCoreApplication::quit();
    return false;
}

}  // namespace morvane
