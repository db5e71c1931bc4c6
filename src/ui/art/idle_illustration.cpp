#include "ui/art/idle_illustration.h"

#include <array>
#include <string_view>

#include "ui/art/art_color.h"
#include "ui/art/pan.h"

namespace morvane {
namespace {

struct Crumb {
    QPointF centre;
    double diameter;
    std::string_view color;
    double opacity;
};
constexpr std::array crumbs{
    Crumb{{20.6, 64.6}, 6.8, "warmInk", 0.6}, Crumb{{14.7, 58.7}, 4.6, "diskMedia", 0.7},
    Crumb{{23.3, 55.3}, 3.4, "warmInk", 0.6}, Crumb{{12.4, 68.4}, 3.2, "diskMedia", 0.7}};

}  // namespace

void paintIdleIllustration(QPainter& painter, bool dark) {
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(artColor("warm", dark));
    painter.drawEllipse(QRectF(10, 8, 88, 88));
    paintPan(painter, artColor("accent", dark));
    painter.setPen(QPen(artColor("onAccent", dark, 0.35), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(40, 66), QPointF(70, 66));
    painter.setPen(Qt::NoPen);
    for (const Crumb& crumb : crumbs) {
        painter.setBrush(artColor(crumb.color, dark, crumb.opacity));
        painter.drawEllipse(crumb.centre, crumb.diameter / 2, crumb.diameter / 2);
    }
    painter.restore();
}

}  // namespace morvane
