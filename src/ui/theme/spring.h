#pragma once

#include <QAbstractAnimation>
#include <QObject>
#include <QQmlEngine>
#include <QQmlParserStatus>
#include <memory>

namespace morvane {

// Where a spring stands, and how fast it goes in units a second.
struct SpringState {
    double value = 0;
    double velocity = 0;
    bool operator==(const SpringState&) const = default;
};

// Where a spring stands `t` seconds after it stood at `from` with `velocity`, pulled to `target`.
// `response` is the period in seconds it would have without friction; `damping` 1 comes to rest
// without passing the target, below 1 it swings, above 1 it creeps. A response of 0 or less is at
// rest at once.
[[nodiscard]] SpringState springValue(double response, double damping, double from, double velocity,
                                      double target, double t);

// A number that follows `target` as a spring does. Given a new target on its way, it goes on from
// where it stands with the speed it has. It starts at rest at its first target; while `enabled` is
// off or the theme asks for reduced motion it jumps. Frames are asked for only while `running`.
class Spring : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT

    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY targetChanged FINAL)
    Q_PROPERTY(double response MEMBER response_ NOTIFY shapeChanged FINAL)
    Q_PROPERTY(double dampingFraction MEMBER dampingFraction_ NOTIFY shapeChanged FINAL)
    Q_PROPERTY(double value READ value NOTIFY valueChanged FINAL)
    Q_PROPERTY(bool running READ running NOTIFY runningChanged FINAL)
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged FINAL)

public:
    explicit Spring(QObject* parent = nullptr);
    ~Spring() override;

    [[nodiscard]] double target() const { return target_; }
    void setTarget(double target);
    [[nodiscard]] double value() const { return now_.value; }
    [[nodiscard]] bool running() const;
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    // Ends the motion at the target.
    Q_INVOKABLE void jump();

    void classBegin() override {}
    void componentComplete() override;

signals:
    void targetChanged();
    void shapeChanged();
    void valueChanged();
    void runningChanged();
    void enabledChanged();

private:
    class Clock;

    void moveTo(double seconds);
    void stand(SpringState state);
    [[nodiscard]] bool mayMove() const;

    double target_ = 0;
    double response_ = 0.5;
    double dampingFraction_ = 1;
    bool enabled_ = true;
    bool complete_ = false;
    SpringState start_;
    SpringState now_;
    double span_ = 0;  // what this motion has to cover: it sets what counts as being there
    std::unique_ptr<Clock> clock_;
};

}  // namespace morvane
