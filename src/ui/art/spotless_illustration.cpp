#include "ui/art/spotless_illustration.h"

#include "ui/art/art_color.h"
#include "ui/art/pan.h"

namespace morvane {

QPainterPath sparkle(QPointF centre, double reach) {
    const double waist = 0.3 * reach;
    QPainterPath star;
    star.moveTo(centre + QPointF(0, -reach));
    star.lineTo(centre + QPointF(waist, -waist));
    star.lineTo(centre + QPointF(reach, 0));
    star.lineTo(centre + QPointF(waist, waist));
    star.lineTo(centre + QPointF(0, reach));
    star.lineTo(centre + QPointF(-waist, waist));
    star.lineTo(centre + QPointF(-reach, 0));
    star.lineTo(centre + QPointF(-waist, -waist));
    star.closeSubpath();
    return star;
}

void paintSpotlessIllustration(QPainter& painter, bool dark) {
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(artColor("warm", dark));
    painter.drawEllipse(QRectF(6, 8, 88, 88));
    painter.save();
    painter.translate(-4, 0);
    paintPan(painter, artColor("accent", dark));
    painter.restore();
    painter.fillPath(sparkle({24, 35}, 5), artColor("warmInk", dark));
    painter.fillPath(sparkle({82, 25.2}, 3.2), artColor("diskMedia", dark));
    painter.restore();
}

}  // namespace morvane
