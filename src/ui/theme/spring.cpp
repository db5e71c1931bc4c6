#include "ui/theme/spring.h"

#include <QQmlEngine>
#include <cmath>

#include "ui/theme/theme.h"

namespace morvane {
namespace {

// A motion has ended once it is this part of its way from the target; a thousand pixels of way
// leave half a pixel.
constexpr double restingPart = 0.0005;

}  // namespace

// The frames of a motion. It has no end of its own: the spring stops it.
class Spring::Clock : public QAbstractAnimation {
public:
    explicit Clock(Spring& spring) : spring_(spring) {}
    [[nodiscard]] int duration() const override { return -1; }

protected:
    void updateCurrentTime(int milliseconds) override { spring_.moveTo(milliseconds / 1000.0); }
    void updateState(State newState, State oldState) override {
        if ((newState == Running) != (oldState == Running)) emit spring_.runningChanged();
    }

private:
    Spring& spring_;
};

Spring::Spring(QObject* parent) : QObject(parent), clock_(std::make_unique<Clock>(*this)) {}

Spring::~Spring() {
    blockSignals(true);  // the clock stops while the spring is half gone
}

bool Spring::running() const {
    return clock_->state() == QAbstractAnimation::Running;
}

void Spring::setTarget(double target) {
    if (target == target_ || std::isnan(target)) return;
    target_ = target;
    if (!complete_ || !mayMove()) {
        jump();
    } else {
        start_ = now_;
        span_ = std::abs(target_ - now_.value) + std::abs(now_.velocity) * response_;
        clock_->stop();
        clock_->start();
    }
    emit targetChanged();
}

void Spring::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    if (!enabled_) jump();
    emit enabledChanged();
}

void Spring::jump() {
    clock_->stop();
    stand({target_, 0});
}

void Spring::componentComplete() {
    complete_ = true;
    jump();
}

void Spring::moveTo(double seconds) {
    if (!running()) return;
    if (!mayMove()) return jump();
    const SpringState state =
        springValue(response_, dampingFraction_, start_.value, start_.velocity, target_, seconds);
    const bool resting = std::abs(state.value - target_) <= restingPart * span_ &&
                         std::abs(state.velocity) * response_ <= 10 * restingPart * span_;
    if (resting) return jump();
    stand(state);
}

void Spring::stand(SpringState state) {
    const bool moved = state.value != now_.value;
    now_ = state;
    if (moved) emit valueChanged();
}

bool Spring::mayMove() const {
    if (!enabled_) return false;
    QQmlEngine* const engine = qmlEngine(this);
    return engine == nullptr || !Theme::of(*engine).reducedMotion();
}

}  // namespace morvane
