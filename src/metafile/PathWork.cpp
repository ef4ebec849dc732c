#include "metafile/PathWork.h"

#include <QRectF>
#include <algorithm>
#include <cmath>

#include "metafile/Limits.h"

namespace vellora::metafile {

double edgeWork(const QPainterPath& path, double times) {
    double pixels = 0;
    QPointF last;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF change = QPointF(element) - last;
        if (!element.isMoveTo() && change.y() != 0)  // a level edge is passed over
            pixels += times * (std::abs(change.x()) + std::abs(change.y()));
        last = element;
    }
    const QRectF bounds = path.controlPointRect();
    const double crossings =
        std::min(pixels / std::max(bounds.height(), 1.0), std::max(bounds.width(), 1.0));
    return pixels * crossings / kEdgeSteps;
}

}  // namespace vellora::metafile
