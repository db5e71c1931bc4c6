#pragma once

#include <QApplication>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace morvane::bench {

// One turn of the main loop: all events that it handled before it looked for new ones.
struct Turn {
    std::chrono::nanoseconds took{};       // without waiting for the scene graph
    std::chrono::nanoseconds processor{};  // of the main thread
    std::string longestEvent;              // what took most of it
    std::chrono::nanoseconds longest{};
};

// The application, with a clock at each event.
class WatchedApplication final : public QApplication {
public:
    using QApplication::QApplication;

    // What is not counted: the time that `waited` has come to.
    void setWaited(std::function<std::chrono::nanoseconds()> waited) {
        waited_ = std::move(waited);
    }

    // Handles what has come, or waits for it, `atMost` as long.
    void turn(std::chrono::milliseconds atMost);

    // The turns since the last call in which something was handled.
    [[nodiscard]] std::vector<Turn> takeTurns();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    std::function<std::chrono::nanoseconds()> waited_;
    Turn current_;
    int depth_ = 0;
    std::vector<Turn> turns_;
};

}  // namespace morvane::bench
