#include "text/PathTools.h"

#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <vector>

namespace vellora {
namespace {

/// How much finer than a device pixel curves are followed, and how short a step may be.
constexpr double kFineness = 2.0;
constexpr double kShortestStep = 0.25;
constexpr double kFlatness = 0.25;

/// The contours as polygons that need no closing line.
std::vector<QPolygonF> polygonsOf(const QPainterPath& path, double scale) {
    const double fine = scale * kFineness;
    std::vector<QPolygonF> polygons;
    for (const QPolygonF& contour : path.toSubpathPolygons(QTransform::fromScale(fine, fine))) {
        QPolygonF polygon;
        for (const QPointF& point : contour) {
            if (polygon.isEmpty() ||
                (point / fine - polygon.back()).manhattanLength() * fine >= kShortestStep) {
                polygon.append(point / fine);
            }
        }
        polygons.push_back(std::move(polygon));
    }
    return polygons;
}

double cross(QPointF a, QPointF b) {
    return a.x() * b.y() - a.y() * b.x();
}

double signedArea(const QPolygonF& polygon) {
    double area = 0.0;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        area += cross(polygon[i], polygon[(i + 1) % polygon.size()]);
    }
    return area / 2;
}

/// Adds the area that a row of edges covers on its way, turning the same way round as the outline.
void addSweptEdges(QPainterPath& result, const QPolygonF& edges, QPointF way) {
    QPolygonF area = edges.translated(way);
    for (auto point = edges.rbegin(); point != edges.rend(); ++point) {
        area.append(*point);
    }
    result.addPolygon(area);
    result.closeSubpath();
}

/// An outline that moves uncovers nothing new but in front of the edges that face the way.
void addSweptPolygon(QPainterPath& result, const QPolygonF& polygon, QPointF way, bool clockwise) {
    result.addPolygon(polygon);
    result.closeSubpath();
    QPolygonF edges;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF from = polygon[i];
        const QPointF to = polygon[(i + 1) % polygon.size()];
        const double facing = cross(to - from, way);
        if (clockwise ? facing < 0.0 : facing > 0.0) {
            if (edges.isEmpty()) {
                edges.append(from);
            }
            edges.append(to);
        } else if (!edges.isEmpty()) {
            addSweptEdges(result, edges, way);
            edges.clear();
        }
    }
    if (!edges.isEmpty()) {
        addSweptEdges(result, edges, way);
    }
}

}  // namespace

QPainterPath widened(const QPainterPath& path, double width, double scale) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setCurveThreshold(kFlatness / std::max(scale, 1e-6));
    QPainterPath result = stroker.createStroke(path);
    result.setFillRule(Qt::WindingFill);
    return result;
}

QPainterPath swept(const QPainterPath& path, QPointF way, double scale) {
    if (way.isNull()) {
        return path;
    }
    const std::vector<QPolygonF> polygons = polygonsOf(path, scale);
    double area = 0.0;
    for (const QPolygonF& polygon : polygons) {
        area += signedArea(polygon);
    }
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (const QPolygonF& polygon : polygons) {
        addSweptPolygon(result, polygon, way, area > 0.0);
    }
    return result;
}

}  // namespace vellora
