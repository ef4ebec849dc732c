#include "metafile/PathCutter.h"

#include <QLineF>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <optional>

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

std::optional<QLineF> cutSegment(QLineF line, const QRectF& area) {
    for (const Border& border : bordersOf(area)) {
        const double from = border.depth(line.p1());
        const double to = border.depth(line.p2());
        if (from < 0 && to < 0)
            return {};
        const QPointF meeting =
            (from < 0) != (to < 0) ? crossing(line.p1(), from, line.p2(), to) : QPointF();
        if (from < 0)
            line.setP1(meeting);
        else if (to < 0)
            line.setP2(meeting);
    }
    return line;
}

}  // namespace

QPainterPath cutFilled(const QPainterPath& path, const QRectF& area) {
    QPainterPath result;
    result.setFillRule(path.fillRule());
    for (QPolygonF polygon : path.toSubpathPolygons()) {
        for (const Border& border : bordersOf(area))
            polygon = cutAtBorder(polygon, border);
        if (polygon.size() > 2) {
            result.addPolygon(polygon);
            result.closeSubpath();
        }
    }
    return result;
}

QPainterPath cutLine(const QPainterPath& path, const QRectF& area) {
    QPainterPath result;
    for (const QPolygonF& polygon : path.toSubpathPolygons()) {
        for (qsizetype i = 1; i < polygon.size(); ++i) {
            const std::optional<QLineF> kept = cutSegment({polygon[i - 1], polygon[i]}, area);
            if (!kept)
                continue;
            if (result.isEmpty() || result.currentPosition() != kept->p1())
                result.moveTo(kept->p1());
            result.lineTo(kept->p2());
        }
    }
    return result;
}

}  // namespace vellora::metafile
