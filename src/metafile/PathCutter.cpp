#include "metafile/PathCutter.h"

#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <array>

namespace vellora::metafile {
namespace {

/// One border of the area: points with `along * sign >= limit * sign` lie inside.
struct Border {
    bool vertical;
    double limit;
    double sign;

    double depth(QPointF point) const {
        return ((vertical ? point.x() : point.y()) - limit) * sign;
    }
};

std::array<Border, 4> bordersOf(const QRectF& area) {
    return {Border{true, area.left(), 1}, Border{true, area.right(), -1},
            Border{false, area.top(), 1}, Border{false, area.bottom(), -1}};
}

QPointF crossing(QPointF from, double fromDepth, QPointF to, double toDepth) {
    return from + (to - from) * (fromDepth / (fromDepth - toDepth));
}

QPolygonF cutAtBorder(const QPolygonF& polygon, const Border& border) {
    QPolygonF kept;
    kept.reserve(polygon.size() + 4);
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF from = polygon[i == 0 ? polygon.size() - 1 : i - 1];
        const QPointF to = polygon[i];
        const double fromDepth = border.depth(from);
        const double toDepth = border.depth(to);
        if ((fromDepth >= 0) != (toDepth >= 0))
            kept.append(crossing(from, fromDepth, to, toDepth));
        if (toDepth >= 0)
            kept.append(to);
    }
    return kept;
}

}  // namespace

QPainterPath cutFilled(const QPainterPath& path, const QRectF& area, double scale) {
    const QTransform toPixels = QTransform::fromScale(scale, scale);
    const QTransform back = QTransform::fromScale(1 / scale, 1 / scale);
    const QRectF pixels = toPixels.mapRect(area);
    QPainterPath result;
    result.setFillRule(path.fillRule());
    for (QPolygonF polygon : path.toSubpathPolygons(toPixels)) {
        for (const Border& border : bordersOf(pixels))
            polygon = cutAtBorder(polygon, border);
        if (polygon.size() > 2) {
            result.addPolygon(back.map(polygon));
            result.closeSubpath();
        }
    }
    return result;
}

}  // namespace vellora::metafile
