#pragma once

#include <QObject>
#include <QQuickWindow>
#include <atomic>
#include <chrono>
#include <mutex>
#include <vector>

namespace morvane::bench {

// What the scene graph of a window does: its frames, and the time that drawing takes on its own
// thread. Made and asked on the main thread; `window` outlives it.
class FrameWatch final : public QObject {
public:
    explicit FrameWatch(QQuickWindow& window);

    [[nodiscard]] int frames() const { return frames_; }
    // From the start of the program to the first frame on the screen; zero before.
    [[nodiscard]] std::chrono::nanoseconds firstFrame() const { return firstFrame_.load(); }
    // How long the main thread has waited in all until the scene graph was free to take the scene
    // over: the frame before was still being drawn. Copying the scene is not in it.
    [[nodiscard]] std::chrono::nanoseconds waited() const { return waited_; }
    // What each frame took to draw since the last call.
    [[nodiscard]] std::vector<std::chrono::nanoseconds> takeDrawing();

private:
    using Clock = std::chrono::steady_clock;

    std::atomic<int> frames_ = 0;
    std::atomic<std::chrono::nanoseconds> firstFrame_{std::chrono::nanoseconds{}};
    // Written by the drawing thread while the main thread waits for it, which Qt orders.
    std::chrono::nanoseconds waited_{};
    Clock::time_point handedOver_;
    Clock::time_point begun_;  // drawing thread
    std::mutex mutex_;
    std::vector<std::chrono::nanoseconds> drawing_;
};

}  // namespace morvane::bench
