#include "ui/window_test.h"

#include <QCoreApplication>
#include <QTest>

namespace morvane {
namespace {

QStringList heard;

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    heard.append(QStringLiteral("%1: %2").arg(QString::fromUtf8(context.category), text));
}

// By what is on view: what a repeater makes is nobody's child but the scene's.
QQuickItem* below(const QQuickItem& above, const QString& objectName) {
    for (QQuickItem* child : above.childItems()) {
        if (!child->isVisible()) continue;
        if (child->objectName() == objectName) return child;
        if (QQuickItem* found = below(*child, objectName)) return found;
    }
    return nullptr;
}

}  // namespace

void WindowTest::SetUp() {
    ScreenTest::SetUp();
    heard.clear();
    qInstallMessageHandler(hear);
    scope_.emplace(Runtime{loop, pool});
    model_.emplace(*screens, *state, *updater, *scope_);
    engine_ = std::make_unique<QQmlApplicationEngine>();
    engine_->addImportPath(QStringLiteral("qrc:/"));
    engine_->setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&*model_)}});
    engine_->load(QUrl(QStringLiteral("qrc:/Morvane/Window/Main.qml")));
    ASSERT_FALSE(engine_->rootObjects().isEmpty()) << qPrintable(heard.join(u'\n'));
    window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().constFirst());
    window_->show();
    window_->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    settle();
}

void WindowTest::TearDown() {
    EXPECT_EQ(heard.join(u'\n').toStdString(), "");
    engine_.reset();
    qInstallMessageHandler(nullptr);
    model_.reset();
    scope_->cancel();
    EXPECT_TRUE(loop.runUntil([this] { return scope_->isEmpty(); }));
    scope_.reset();
    ScreenTest::TearDown();
}

void WindowTest::turn() {
    loop.runReady();
    // A timer of no length and a layout each take a turn of their own.
    for (int each = 0; each < 4; ++each) QCoreApplication::processEvents();
    // Rows and columns find their places when a frame is drawn.
    (void)window_->grabWindow();
}

void WindowTest::pass(int milliseconds) {
    QCoreApplication::processEvents();
    frames_.pass(milliseconds);
}

void WindowTest::settle() {
    turn();
    for (int each = 0; each < 4; ++each) pass(2000);
    turn();
}

void WindowTest::show(ScanPhase phase) {
    state->crumbItems = {trashItem("Caches", Safety::safe, 3'000'000'000)};
    state->devSections = {{devSection("xcode", {trashItem("Builds", Safety::safe, 4'000'000)})}};
    state->leftoverItems = {trashItem("Gone", Safety::review, 2'000'000)};
    state->scanLocation = "~/Library/Caches/com.example.App/Data";
    state->scannedAt = system.now;
    state->finishedCategories = {ScanCategory::crumbs, ScanCategory::developer};
    state->freedMB = 3004;
    state->scanPhase = phase;
    settle();
}

void WindowTest::fillBar() {
    using enum DiskCategory;
    state->disk = DiskUsage{.totalBytes = 500'000'000'000,
                            .freeBytes = 100'000'000'000,
                            .purgeableBytes = 50'000'000'000,
                            .systemBytes = 25'000'000'000,
                            .measured = {{apps, 50'000'000'000}, {media, 100'000'000'000}}};
    settle();
}

QQuickItem* WindowTest::find(const QString& objectName) {
    return find(objectName, *window_);
}

QQuickItem* WindowTest::find(const QString& objectName, const QQuickWindow& in) {
    return below(*in.contentItem(), objectName);
}

QQuickItem& WindowTest::item(const QString& objectName) {
    QQuickItem* const found = find(objectName);
    if (found == nullptr) ADD_FAILURE() << "no " << qPrintable(objectName) << " on view";
    return found == nullptr ? *window_->contentItem() : *found;
}

QRectF WindowTest::place(const QString& objectName) {
    const QQuickItem& found = item(objectName);
    return found.mapRectToScene(QRectF(0, 0, found.width(), found.height()));
}

QString WindowTest::focused() {
    const QQuickItem* const item = window_->activeFocusItem();
    return item == nullptr ? QString() : item->objectName();
}

void WindowTest::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_, key, modifiers);
    settle();
}

void WindowTest::click(const QString& objectName) {
    QTest::mouseClick(window_, Qt::LeftButton, Qt::NoModifier,
                      place(objectName).center().toPoint());
    settle();
}

QStringList WindowTest::warnings() {
    return heard;
}

}  // namespace morvane
