#include "window/frame_watch.h"

#include <utility>

#include "window/process_clock.h"

namespace morvane::bench {

FrameWatch::FrameWatch(QQuickWindow& window) {
    connect(
        &window, &QQuickWindow::afterAnimating, this, [this] { handedOver_ = Clock::now(); },
        Qt::DirectConnection);
    connect(
        &window, &QQuickWindow::beforeSynchronizing, this,
        [this] { waited_ += Clock::now() - handedOver_; }, Qt::DirectConnection);
    connect(
        &window, &QQuickWindow::beforeRendering, this, [this] { begun_ = Clock::now(); },
        Qt::DirectConnection);
    connect(
        &window, &QQuickWindow::frameSwapped, this,
        [this] {
            const auto took = Clock::now() - begun_;
            if (frames_++ == 0) firstFrame_ = sinceStart();
            const std::scoped_lock lock(mutex_);
            drawing_.push_back(took);
        },
        Qt::DirectConnection);
}

std::vector<std::chrono::nanoseconds> FrameWatch::takeDrawing() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(drawing_, {});
}

}  // namespace morvane::bench
