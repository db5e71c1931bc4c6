#pragma once

#include <QAnimationDriver>
#include <QCoreApplication>

namespace morvane {

// The frames of all animations, turned by hand.
class Frames : public QAnimationDriver {
public:
    Frames() { install(); }
    ~Frames() override { uninstall(); }
    [[nodiscard]] qint64 elapsed() const override { return now_; }
    // An animation begins with the next turn of the loop after its start.
    void pass(int milliseconds) {
        QCoreApplication::processEvents();
        now_ += milliseconds;
        advanceAnimation();
    }

private:
    qint64 now_ = 0;
};

}  // namespace morvane
