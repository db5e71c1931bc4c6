#pragma once

#include <QAnimationDriver>
#include <QImage>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "screens/screen_test.h"
#include "tasks/scope.h"
#include "ui/theme/theme.h"
#include "ui/window/window_model.h"

namespace morvane {

// The frames of all animations, turned by hand. A motion after a rest counts from its own start, as
// it does with the frames of a screen.
class HandTurnedFrames : public QAnimationDriver {
public:
    HandTurnedFrames() { install(); }
    ~HandTurnedFrames() override { uninstall(); }
    [[nodiscard]] qint64 elapsed() const override { return now_; }
    void pass(int milliseconds) {
        now_ += milliseconds;
        advanceAnimation();
    }

protected:
    void start() override {
        now_ = 0;
        QAnimationDriver::start();
    }

private:
    qint64 now_ = 0;
};

// The main window over a Mac in memory. Its animations move when the test lets time pass. What a
// QML warning says fails the test at its end.
class WindowTest : public screens::ScreenTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Lets the store tell what has changed, and the window take it in.
    void turn();
    // The same, and ends every motion that comes to an end.
    void settle();
    // Lets animations move on; those begin that were started since.
    void pass(int milliseconds);

    // A phase of the scan, with something of everything to show.
    void show(ScanPhase phase);
    // A disk with every kind of slice, half measured.
    void fillBar();

    [[nodiscard]] Theme& theme() { return Theme::of(*engine_); }
    [[nodiscard]] QQmlApplicationEngine& engine() { return *engine_; }
    [[nodiscard]] QQuickWindow& window() { return *window_; }
    [[nodiscard]] WindowModel& model() { return *model_; }
    // The item on view of that objectName, or null; in the main window or in another.
    [[nodiscard]] QQuickItem* find(const QString& objectName);
    [[nodiscard]] static QQuickItem* find(const QString& objectName, const QQuickWindow& in);
    // The same; a missing one fails the test and stands for the window's content.
    [[nodiscard]] QQuickItem& item(const QString& objectName);
    // Where it lies in the window.
    [[nodiscard]] QRectF place(const QString& objectName);
    [[nodiscard]] QString focused();

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(const QString& objectName);
    // What the window shows, drawn anew.
    QImage picture() { return window_->grabWindow(); }
    [[nodiscard]] static QStringList warnings();

private:
    HandTurnedFrames frames_;
    std::optional<Scope> scope_;
    std::optional<WindowModel> model_;
    std::unique_ptr<QQmlApplicationEngine> engine_;
    QQuickWindow* window_ = nullptr;
};

}  // namespace morvane
