#include "window/turn_watch.h"

#include <QMetaEnum>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "window/process_clock.h"

namespace morvane::bench {
namespace {

std::string describe(const char* receiver, QEvent::Type type) {
    const char* key = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
    return std::string(receiver) + " " + (key != nullptr ? key : std::to_string(type).c_str());
}

}  // namespace

void WatchedApplication::turn(std::chrono::milliseconds atMost) {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(atMost);
    processEvents(QEventLoop::WaitForMoreEvents);
    if (current_.took > std::chrono::nanoseconds::zero()) turns_.push_back(current_);
    current_ = {};
}

std::vector<Turn> WatchedApplication::takeTurns() {
    return std::exchange(turns_, {});
}

bool WatchedApplication::notify(QObject* receiver, QEvent* event) {
    // Other threads deliver events too, each to its own objects.
    if (QThread::currentThread() != thread() || depth_ > 0) {
        return QApplication::notify(receiver, event);
    }
    // The receiver may be gone afterwards.
    const char* const name = receiver->metaObject()->className();
    const QEvent::Type type = event->type();
    const auto waited = waited_ ? waited_() : std::chrono::nanoseconds{};
    const auto processor = threadTime();
    const auto begin = std::chrono::steady_clock::now();
    ++depth_;
    const bool handled = QApplication::notify(receiver, event);
    --depth_;
    const std::chrono::nanoseconds took =
        std::chrono::steady_clock::now() - begin -
        ((waited_ ? waited_() : std::chrono::nanoseconds{}) - waited);
    current_.took += took;
    current_.processor += threadTime() - processor;
    if (took > current_.longest) {
        current_.longest = took;
        current_.longestEvent = describe(name, type);
    }
    return handled;
}

}  // namespace morvane::bench
