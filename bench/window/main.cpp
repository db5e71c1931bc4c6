// How long the main loop of the window is held up, and what the window costs when nothing moves.
//
//   morvane-sample-disk /tmp/mac --entries 1000000 && window_bench /tmp/mac
//
// Opens the window of the program at 1100 by 720 on the display there is, rests, scans, opens the
// review and the settings, uses them, and scans again while it goes from screen to screen. For each
// stage one line: the turns of the main loop, the longest (without waiting for the frame before to
// be drawn), the most processor time that one of them used, which a busy machine does not stretch,
// the 99.9th percentile, and apart from them the frames and the longest and usual time of the
// thread that draws. Aims: no turn over 16 ms but in the first sight of a screen; at rest no frame
// and next to no processor time. The disk stays as it is, but for the program's own settings.

#include <QCoreApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QWheelEvent>
#include <QtQml/QQmlExtensionPlugin>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/preview.h"
#include "ui/window/window_model.h"
#include "window/frame_watch.h"
#include "window/process_clock.h"
#include "window/turn_watch.h"

Q_IMPORT_QML_PLUGIN(Morvane_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Morvane_ArtPlugin)
Q_IMPORT_QML_PLUGIN(Morvane_ComponentsPlugin)
Q_IMPORT_QML_PLUGIN(Morvane_WindowPlugin)

namespace {

using namespace morvane;  // NOLINT(google-build-using-namespace)
using namespace std::chrono_literals;
using bench::Turn;

double milliseconds(std::chrono::nanoseconds duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

QQuickItem* below(const QQuickItem& above, const QString& objectName) {
    for (QQuickItem* child : above.childItems()) {
        if (!child->isVisible()) continue;
        if (child->objectName() == objectName) return child;
        if (QQuickItem* found = below(*child, objectName)) return found;
    }
    return nullptr;
}

// The user of the window.
class User {
public:
    User(bench::WatchedApplication& application, QQuickWindow& window)
        : application_(application), window_(window), frames_(window) {
        application_.setWaited([this] { return frames_.waited(); });
    }
    ~User() { application_.setWaited(nullptr); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    [[nodiscard]] WindowModel& model() const {
        return *window_.property("model").value<WindowModel*>();
    }
    [[nodiscard]] bench::FrameWatch& frames() { return frames_; }
    [[nodiscard]] QQuickItem* find(const char* name) const {
        return below(*window_.contentItem(), QString::fromLatin1(name));
    }

    void wait(std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        waitUntil([&] { return std::chrono::steady_clock::now() >= end; });
    }
    void waitUntil(const std::function<bool()>& done) {
        while (!done()) application_.turn(20ms);
    }
    // Until no frame was drawn for a second and next to nothing was done.
    void waitForRest() {
        for (bool rests = false; !rests;) {
            const int before = frames_.frames();
            const auto used = bench::processorTime();
            wait(1s);
            rests = before == frames_.frames() && bench::processorTime() - used < 20ms;
        }
    }

    void press(const char* command) {
        model().shell()->press(QStringLiteral("menus.items"), QString::fromLatin1(command));
    }
    void move(QPoint at) { QTest::mouseMove(&window_, at); }
    void click(const char* name) {
        const QQuickItem* const item = find(name);
        if (item == nullptr) {
            std::fprintf(stderr, "window_bench: no %s on view\n", name);
            std::_Exit(1);
        }
        const QPoint at = item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
        move(at);
        QTest::mouseClick(&window_, Qt::LeftButton, Qt::NoModifier, at);
    }
    void wheel(int pixels) {
        const QPointF at(700, 400);
        QCoreApplication::postEvent(
            &window_, new QWheelEvent(at, window_.mapToGlobal(at), {0, pixels}, {0, pixels * 2},
                                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    }

    // Prints what has passed since the last line.
    void tell(const char* stage) {
        keep();
        tellKept(stage);
    }
    // What is kept is told together, apart from what comes after it.
    void keep() {
        const std::vector<Turn> turns = application_.takeTurns();
        kept_.insert(kept_.end(), turns.begin(), turns.end());
    }
    void tellKept(const char* stage) {
        std::vector<Turn> turns = std::exchange(kept_, {});
        std::vector<std::chrono::nanoseconds> drawing = frames_.takeDrawing();
        if (turns.empty()) turns.emplace_back();
        std::sort(drawing.begin(), drawing.end());
        const auto busiest = std::max_element(
            turns.begin(), turns.end(),
            [](const Turn& one, const Turn& other) { return one.processor < other.processor; });
        const auto mostUsed = busiest->processor;
        std::sort(turns.begin(), turns.end(),
                  [](const Turn& one, const Turn& other) { return one.took < other.took; });
        const Turn& longest = turns.back();
        const Turn& nearly = turns[turns.size() - 1 - turns.size() / 1000];
        std::printf("%-34s %6zu turns, longest %7.3f ms (processor %7.3f ms), 99.9th %7.3f ms",
                    stage, turns.size(), milliseconds(longest.took), milliseconds(mostUsed),
                    milliseconds(nearly.took));
        if (!drawing.empty()) {
            std::printf("; %5zu frames drawn in %.1f ms, the longest %.1f ms", drawing.size(),
                        milliseconds(drawing[drawing.size() / 2]), milliseconds(drawing.back()));
        }
        if (longest.took > 16ms) {
            std::printf("\n%-34s over the aim: %s took %.3f ms of it", "",
                        longest.longestEvent.c_str(), milliseconds(longest.longest));
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    void rest(const char* stage) {
        waitForRest();
        const int before = frames_.frames();
        const auto used = bench::processorTime();
        const auto end = std::chrono::steady_clock::now() + 10s;
        // A clock of this loop that ticked would count as work of the program.
        while (std::chrono::steady_clock::now() < end) application_.turn(5s);
        std::printf("%-34s %d frames and %.1f ms of processor time in 10 s\n", stage,
                    frames_.frames() - before, milliseconds(bench::processorTime() - used));
        std::fflush(stdout);
        (void)application_.takeTurns();
        (void)frames_.takeDrawing();
    }

private:
    bench::WatchedApplication& application_;
    QQuickWindow& window_;
    bench::FrameWatch frames_;
    std::vector<Turn> kept_;
};

void scroll(User& user) {
    for (int step = 0; step < 60; ++step) {
        user.wheel(step < 40 ? -120 : 180);
        user.wait(16ms);
    }
}

void walk(User& user) {
    const auto seen = [&user](const char* name) { return user.find(name) != nullptr; };
    std::printf("from the start to the first frame: %.0f ms\n",
                milliseconds(user.frames().firstFrame()));
    user.tell("first sight of the overview");
    user.rest("at rest before a scan");

    user.press("scanNow");
    user.waitUntil([&] { return seen("scanningCard"); });
    user.wait(500ms);
    user.tell("first sight of a scan");
    const auto begin = std::chrono::steady_clock::now();
    for (int turn = 0;; ++turn) {
        user.move({40 + turn % 1000, 60 + turn % 600});
        user.wait(20ms);
        if (seen("category0")) break;
        user.keep();
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    std::printf("scanned in %.1f s\n", took.count());
    user.tellKept("during a scan");
    user.wait(500ms);
    user.tell("first sight of the results");
    user.rest("at rest after it");

    user.click("category0");
    user.waitUntil([&] { return seen("reviewScroll"); });
    user.wait(500ms);
    user.tell("first sight of the review");
    scroll(user);
    user.tell("scrolling in the review");
    user.rest("at rest in the review");
    user.click("rowSettings");
    user.waitUntil([&] { return user.model().onView() == u"settings"; });
    user.wait(500ms);
    user.tell("first sight of the settings");
    user.rest("at rest in the settings");

    user.press("scanNow");
    user.wait(100ms);
    for (int turn = 0; turn == 0 || seen("scanningCard") || user.model().onView() != u"overview";
         ++turn) {
        user.click(turn % 2 == 0 ? "rowSettings" : "section0Row0");
        user.wait(100ms);
    }
    user.tell("from screen to screen in a scan");
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::fputs("usage: window_bench DISK\n", stderr);
        return 2;
    }
    qputenv("QSG_RENDER_LOOP", "threaded");
    auto opened = folder::FolderPlatform::open(words[1]);
    if (const auto* wrong = std::get_if<std::string>(&opened)) {
        std::fprintf(stderr, "window_bench: %s\n", wrong->c_str());
        return 2;
    }
    int ownCount = 1;
    bench::WatchedApplication application(ownCount, words);
    QApplication::setQuitOnLastWindowClosed(false);
    const Preview preview(std::move(std::get<0>(opened)), {.disk = words[1], .dark = false},
                          std::nullopt);
    QQuickWindow* window = nullptr;
    for (QWindow* each : QGuiApplication::topLevelWindows()) {
        if (each->objectName() == "window") window = qobject_cast<QQuickWindow*>(each);
    }
    if (window == nullptr) return 1;
    User user(application, *window);
    user.waitUntil([&] { return user.frames().frames() > 0; });
    walk(user);
    return 0;
}
