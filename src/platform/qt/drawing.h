#pragma once

#include <QByteArray>
#include <QPainter>

namespace qublet {

// Paints an SVG drawing as large as fits into the middle of `place`. Understood is what our own drawings are made of:
// paths, rectangles, circles, ellipses and groups, filled and stroked in plain colours or a linear gradient given in
// parts of the shape. False for anything else; what stood before it is painted then.
bool PaintDrawing(QPainter& painter, const QByteArray& svg, const QRectF& place);

}  // namespace qublet
