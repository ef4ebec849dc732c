#include "text/PathTools.h"

#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <vector>

namespace vellora {
namespace {

/// How much finer than a device pixel curves are followed, and how short a step may be.
constexpr double kFineness = 4.0;
constexpr double kShortestStep = 0.5;
/// Beyond these pixels per unit a glyph is larger than any canvas, and its lines are long enough.
constexpr double kMostDetail = 500.0;
/// How far, in device pixels, an arc's lines may stray from it.
constexpr double kArcError = 0.1;
constexpr double kSmallestArcStep = 0.02;

/// The contours as polygons that need no closing line.
std::vector<QPolygonF> polygonsOf(const QPainterPath& path, double scale) {
    const double fine = std::min(scale, kMostDetail) * kFineness;
    std::vector<QPolygonF> polygons;
    for (const QPolygonF& contour : path.toSubpathPolygons(QTransform::fromScale(fine, fine))) {
        QPolygonF polygon;
        for (const QPointF& point : contour) {
            if (polygon.isEmpty() ||
                (point / fine - polygon.back()).manhattanLength() * fine >= kShortestStep) {
                polygon.append(point / fine);
            }
        }
        if (polygon.size() > 1 && polygon.front() == polygon.back()) {
            polygon.removeLast();
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

double signedArea(const std::vector<QPolygonF>& polygons) {
    double area = 0.0;
    for (const QPolygonF& polygon : polygons) {
        area += signedArea(polygon);
    }
    return area;
}

/// A corner of a pen's side, between two edges of unit length `before` and `after`.
struct Corner {
    QPointF at;
    QPointF before;
    QPointF after;
    double shorter;  // length of the shorter edge
};

QPointF leftOf(QPointF direction) {
    return {direction.y(), -direction.x()};
}

/// Adds the side of a pen left of a corner: an arc where the corner turns away from that side.
/// Where it turns towards it, the two lines meet, or, when they are too short for that, go back to
/// the corner, so that nothing is left uncovered.
void addCorner(QPolygonF& side, const Corner& corner, double reach, double arcStep) {
    const QPointF from = leftOf(corner.before) * reach;
    const QPointF to = leftOf(corner.after) * reach;
    const double turn = cross(corner.before, corner.after);
    const double ahead = QPointF::dotProduct(corner.before, corner.after);
    if (turn < 0.0) {
        const double overlap = reach * -turn / std::max(1.0 + ahead, 1e-9);
        if (overlap < corner.shorter) {
            side.append(corner.at + (from + to) / (1.0 + ahead));
        } else {
            side << corner.at + from << corner.at << corner.at + to;
        }
        return;
    }
    const double angle = std::atan2(turn, ahead);
    const int steps = static_cast<int>(angle / arcStep);
    side.append(corner.at + from);
    for (int i = 1; i <= steps; ++i) {
        const double part = angle * i / (steps + 1);
        side.append(corner.at + from * std::cos(part) - leftOf(from) * std::sin(part));
    }
    side.append(corner.at + to);
}

/// Adds what a pen covers left of a closed contour, less what the contour encloses.
void addOffsetSide(QPainterPath& result, const QPolygonF& polygon, double reach, double scale) {
    const double pixels = std::max(reach * scale, kArcError);
    const double arcStep = std::max(2 * std::acos(1.0 - kArcError / pixels), kSmallestArcStep);
    const qsizetype count = polygon.size();
    QPolygonF side;
    for (qsizetype i = 0; count > 1 && i < count; ++i) {
        const QPointF before = polygon[i] - polygon[(i + count - 1) % count];
        const QPointF after = polygon[(i + 1) % count] - polygon[i];
        const double lengthBefore = std::hypot(before.x(), before.y());
        const double lengthAfter = std::hypot(after.x(), after.y());
        addCorner(side,
                  {polygon[i], before / lengthBefore, after / lengthAfter,
                   std::min(lengthBefore, lengthAfter)},
                  reach, arcStep);
    }
    result.addPolygon(side);
    result.closeSubpath();
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

QPainterPath turnedClockwise(const QPainterPath& path) {
    return signedArea(polygonsOf(path, 1.0)) < 0.0 ? path.toReversed() : path;
}

QPainterPath flattened(const QPainterPath& path, double scale) {
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (const QPolygonF& polygon : polygonsOf(path, scale)) {
        result.addPolygon(polygon);
        result.closeSubpath();
    }
    return result;
}

QPainterPath widened(const QPainterPath& path, double width, double scale) {
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (QPolygonF polygon : polygonsOf(path, scale)) {
        addOffsetSide(result, polygon, width / 2, scale);
        std::reverse(polygon.begin(), polygon.end());
        addOffsetSide(result, polygon, width / 2, scale);
    }
    return result;
}

QPainterPath swept(const QPainterPath& path, QPointF way, double scale) {
    if (way.isNull()) {
        return path;
    }
    const std::vector<QPolygonF> polygons = polygonsOf(path, scale);
    const bool clockwise = signedArea(polygons) > 0.0;
    QPainterPath result;
    result.setFillRule(Qt::WindingFill);
    for (const QPolygonF& polygon : polygons) {
        addSweptPolygon(result, polygon, way, clockwise);
    }
    return result;
}

}  // namespace vellora
