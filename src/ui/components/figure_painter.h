#pragma once

#include <QColor>
#include <QFont>
#include <QQmlEngine>
#include <QQuickPaintedItem>
#include <QString>
#include <vector>

#include "ui/components/figure_runs.h"
#include "ui/theme/spring.h"

namespace morvane {

// A line of text whose figures keep their places while they change. With `animated` a change rolls:
// what differs slides up and fades, what is equal stands still. Its implicit size is that of the
// text at rest, in whole pixels.
class FigurePainter : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
    // The height of the type in logical pixels; halves are kept.
    Q_PROPERTY(double size READ size WRITE setSize NOTIFY lookChanged FINAL)
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY lookChanged FINAL)
    // Added after each character, in logical pixels.
    Q_PROPERTY(double tracking READ tracking WRITE setTracking NOTIFY lookChanged FINAL)
    Q_PROPERTY(QString family READ family WRITE setFamily NOTIFY lookChanged FINAL)
    Q_PROPERTY(bool animated MEMBER animated_ NOTIFY animatedChanged FINAL)

public:
    explicit FigurePainter(QQuickItem* parent = nullptr);

    [[nodiscard]] QString text() const { return text_; }
    void setText(const QString& text);
    [[nodiscard]] double size() const { return size_; }
    void setSize(double size);
    [[nodiscard]] int weight() const { return weight_; }
    void setWeight(int weight);
    [[nodiscard]] QColor color() const { return color_; }
    void setColor(const QColor& color);
    [[nodiscard]] double tracking() const { return tracking_; }
    void setTracking(double tracking);
    [[nodiscard]] QString family() const { return family_; }
    void setFamily(const QString& family);

    void paint(QPainter* painter) override;

signals:
    void textChanged();
    void lookChanged();
    void animatedChanged();

protected:
    void componentComplete() override;

private:
    // A run and where its motion began.
    struct Moving {
        FigureRun run;
        double opacity = 1;
        double shift = 0;  // downwards, in line heights
        double x = 0;
    };

    // The motion of a run that comes or stays, at its present point.
    [[nodiscard]] Moving nowOf(const Moving& moving) const;
    [[nodiscard]] Moving nowOfLeaving(const Moving& moving) const;
    void drawRun(QPainter& painter, const Moving& run) const;
    [[nodiscard]] QFont font() const;
    void lookAgain();
    void measure();
    void roll(const std::vector<FigureRun>& runs);

    QString text_;
    double size_ = 13;
    int weight_ = QFont::Normal;
    QColor color_;
    double tracking_ = 0;
    QString family_;
    bool animated_ = false;
    std::vector<Moving> shown_;
    std::vector<Moving> leaving_;
    Spring progress_;
};

}  // namespace morvane
