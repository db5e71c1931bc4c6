#include "ui/art/pan.h"

namespace morvane {

QPainterPath panShape() {
    QPainterPath body;
    body.moveTo(panLip);
    body.lineTo(72, 72);
    body.quadTo(77, 72, 77, 67);
    body.lineTo(77, 36);
    body.quadTo(77, 30.5, 72, 33);
    body.lineTo(35, 62);
    body.quadTo(27, 68, panLip.x(), panLip.y());
    body.closeSubpath();

    QPainterPath handle;
    handle.moveTo(77, 45);
    handle.lineTo(88, 39);
    QPainterPathStroker stroker;
    stroker.setWidth(7);
    stroker.setCapStyle(Qt::RoundCap);
    // Both outlines run clockwise, so the overlap counts once; uniting them as shapes would break
    // the curves into chords.
    QPainterPath pan = body.toReversed();
    pan.addPath(stroker.createStroke(handle));
    pan.setFillRule(Qt::WindingFill);
    return pan;
}

void paintPan(QPainter& painter, const QColor& color) {
    painter.fillPath(panShape(), color);
}

}  // namespace morvane
