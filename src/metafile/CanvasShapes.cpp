#include <QPainterPathStroker>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "metafile/Canvas.h"
#include "metafile/Limits.h"

namespace vellora::metafile {
namespace {

/// Degrees counter-clockwise from the centre of a box to a point, in the circle that the ellipse
/// in the box comes from.
double angleTo(const QRectF& box, QPointF point) {
    const QPointF centre = box.center();
    const double across = box.width() > 0 ? (point.x() - centre.x()) / box.width() : 0;
    const double down = box.height() > 0 ? (point.y() - centre.y()) / box.height() : 0;
    return std::atan2(-down, across) * 180 / std::numbers::pi;
}

/// A line to where a path begins, and the path.
QPainterPath lineTowards(QPointF from, const QPainterPath& path) {
    QPainterPath result(from);
    if (!path.isEmpty()) {
        result.lineTo(path.elementAt(0));
        result.connectPath(path);
    }
    return result;
}

}  // namespace

void Canvas::moveTo(QPointF to) {
    m_state.position = to;
    m_figureOpen = false;
}

void Canvas::continueLine(QPainterPath line) {
    if (!m_openPath) {
        stroke(line);
        return;
    }
    if (!m_budget.spend(line.elementCount()))
        return;
    if (m_figureOpen)
        m_openPath->connectPath(line);
    else
        m_openPath->addPath(line);
    m_figureOpen = true;
}

void Canvas::lineTo(QPointF to) {
    polylineTo({to});
}

void Canvas::polylineTo(const QPolygonF& points) {
    QPainterPath line(mapped(m_state.position));
    for (const QPointF point : points)
        line.lineTo(mapped(point));
    if (!points.isEmpty())
        m_state.position = points.back();
    continueLine(line);
}

void Canvas::polyline(const QPolygonF& points) {
    shape(ringPath({points}, false), false, true);
}

void Canvas::bezier(const QPolygonF& points) {
    if (points.size() < 4)
        return;
    QPainterPath path(mapped(points.front()));
    for (qsizetype i = 1; i + 2 < points.size(); i += 3)
        path.cubicTo(mapped(points[i]), mapped(points[i + 1]), mapped(points[i + 2]));
    shape(path, false, true);
}

void Canvas::bezierTo(const QPolygonF& points) {
    QPainterPath path(mapped(m_state.position));
    for (qsizetype i = 0; i + 2 < points.size(); i += 3) {
        path.cubicTo(mapped(points[i]), mapped(points[i + 1]), mapped(points[i + 2]));
        m_state.position = points[i + 2];
    }
    continueLine(path);
}

void Canvas::polyDraw(const QPolygonF& points, const std::vector<std::uint8_t>& types) {
    const auto count = std::min(points.size(), static_cast<qsizetype>(types.size()));
    QPointF start = m_state.position;
    for (qsizetype i = 0; i < count; ++i) {
        const std::uint8_t type = types[static_cast<std::size_t>(i)];
        switch (type & 0x06) {
            case 6:
                moveTo(points[i]);
                start = points[i];
                continue;
            case 2:
                lineTo(points[i]);
                break;
            case 4:
                if (i + 2 >= count)
                    return;
                bezierTo({points[i], points[i + 1], points[i + 2]});
                i += 2;
                break;
            default:
                return;
        }
        if ((types[static_cast<std::size_t>(i)] & 1) != 0) {
            if (m_openPath)
                closeFigure();
            else
                lineTo(start);
        }
    }
}

QPainterPath Canvas::ringPath(const std::vector<QPolygonF>& rings, bool closed) const {
    const QTransform transform = toDevice();
    QPainterPath path;
    for (const QPolygonF& ring : rings) {
        if (ring.size() < 2)
            continue;
        path.moveTo(bounded(transform.map(ring.front())));
        for (qsizetype i = 1; i < ring.size(); ++i)
            path.lineTo(bounded(transform.map(ring[i])));
        if (closed)
            path.closeSubpath();
    }
    return path;
}

void Canvas::polygons(const std::vector<QPolygonF>& rings) {
    shape(ringPath(rings, true), true, true);
}

void Canvas::polylines(const std::vector<QPolygonF>& lines) {
    shape(ringPath(lines, false), false, true);
}

QRectF Canvas::insideFrame(const QRectF& box) const {
    const QRectF upright = box.normalized();
    if (m_state.pen.style != PenObject::Style::InsideFrame)
        return upright;
    const double inset =
        std::min({m_state.pen.width / 2, upright.width() / 2, upright.height() / 2});
    return upright.adjusted(inset, inset, -inset, -inset);
}

void Canvas::rectangle(const QRectF& box) {
    shape(mapped(rectanglePath(insideFrame(box))), true, true);
}

void Canvas::roundRectangle(const QRectF& box, QSizeF corner) {
    const QRectF inside = insideFrame(box);
    QPainterPath path;
    path.addRoundedRect(inside, std::min(std::abs(corner.width()), inside.width()) / 2,
                        std::min(std::abs(corner.height()), inside.height()) / 2);
    shape(mapped(path), true, true);
}

void Canvas::ellipse(const QRectF& box) {
    QPainterPath path;
    path.addEllipse(insideFrame(box));
    shape(mapped(path), true, true);
}

QPainterPath Canvas::arcPath(ArcKind kind, const QRectF& box, double start, double sweep) const {
    QPainterPath path;
    if (kind == ArcKind::Pie)
        path.moveTo(box.center());
    else
        path.arcMoveTo(box, start);
    path.arcTo(box, start, sweep);
    if (kind == ArcKind::Pie || kind == ArcKind::Chord)
        path.closeSubpath();
    return mapped(path);
}

void Canvas::arc(ArcKind kind, const QRectF& box, QPointF start, QPointF end) {
    const QRectF inside = insideFrame(box);
    const double from = angleTo(inside, start);
    double sweep = angleTo(inside, end) - from;
    // The direction is the one that is seen, so a flipped axis turns it round.
    const QPointF scale = m_state.page.scale();
    const bool clockwise = m_state.clockwise != (scale.x() * scale.y() < 0);
    if (clockwise && sweep >= 0)
        sweep -= 360;
    else if (!clockwise && sweep <= 0)
        sweep += 360;
    const QPainterPath path = arcPath(kind, inside, from, sweep);
    if (kind != ArcKind::ArcTo) {
        shape(path, kind != ArcKind::Arc, true);
        return;
    }
    const QPainterPath joined = lineTowards(mapped(m_state.position), path);
    QPainterPath logical;
    logical.arcMoveTo(inside, from + sweep);
    m_state.position = logical.currentPosition();
    continueLine(joined);
}

void Canvas::angleArc(QPointF centre, double radius, double start, double sweep) {
    if (!(std::abs(start) < 1.0e6) || !(std::abs(sweep) < 1.0e6))
        return;
    const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    const double turn = std::clamp(sweep, -360.0, 360.0);
    const QPainterPath joined =
        lineTowards(mapped(m_state.position), arcPath(ArcKind::Arc, box, start, turn));
    QPainterPath logical;
    logical.arcMoveTo(box, start + sweep);
    m_state.position = logical.currentPosition();
    continueLine(joined);
}

void Canvas::pixel(QPointF at, ColorRef color) {
    const QPointF corner = mapped(at);
    m_list.fill(rectanglePath({corner.x(), corner.y(), m_pixel, m_pixel}), colorOf(color),
                activeClip());
}

void Canvas::beginPath() {
    m_openPath.emplace();
    m_figureOpen = false;
}

void Canvas::endPath() {
    if (m_openPath)
        m_path = *m_openPath;
    m_openPath.reset();
}

void Canvas::abortPath() {
    m_openPath.reset();
    m_path = QPainterPath();
}

void Canvas::closeFigure() {
    if (m_openPath && m_figureOpen)
        m_openPath->closeSubpath();
    m_figureOpen = false;
}

void Canvas::widenPath() {
    if (m_path.isEmpty() || !m_budget.spend(16.0 * m_path.elementCount()))
        return;
    const double scale = std::sqrt(std::abs(toDevice().determinant()));
    QPainterPathStroker stroker;
    stroker.setWidth(std::clamp(m_state.pen.width * scale, m_pixel, kMaxCoordinate));
    stroker.setCapStyle(m_state.pen.cap);
    stroker.setJoinStyle(m_state.pen.join);
    stroker.setMiterLimit(std::clamp(m_state.miterLimit, 1.0, kMaxMiter));
    m_path = stroker.createStroke(m_path);
    m_path.setFillRule(Qt::WindingFill);
}

void Canvas::paintPath(bool fills, bool strokes) {
    endPath();
    const QPainterPath path = std::exchange(m_path, {});
    if (!path.isEmpty())
        shape(path, fills, strokes);
}

void Canvas::clipToPath(ClipMode mode) {
    endPath();
    QPainterPath path = std::exchange(m_path, {});
    if (path.isEmpty())
        return;
    path.setFillRule(m_state.fillRule);
    clipTo(path, mode);
}

void Canvas::fillRegion(const QPainterPath& region, const BrushObject& brush) {
    fill(mapped(region), brush);
}

void Canvas::frameRegion(const QPainterPath& region, const BrushObject& brush, QSizeF width) {
    const std::optional<QBrush> ink = solidOrPattern(brush);
    const QPainterPath outline = mapped(region);
    if (!ink || outline.isEmpty() || !m_budget.spend(8.0 * outline.elementCount()))
        return;
    const double scale = std::sqrt(std::abs(toDevice().determinant()));
    const double across = std::max(std::abs(width.width()), std::abs(width.height())) * scale;
    // Half of the line falls outside the region, where the clip takes it away.
    ClipChain inside;
    inside.combine(outline, ClipMode::And);
    if (const ClipPartsPtr outer = activeClip()) {
        for (const ClipPart& part : *outer)
            inside.combine(part, ClipMode::And);
    }
    const double line = 2 * std::clamp(across, m_pixel, kMaxCoordinate / 2);
    m_list.stroke(outline, QPen(*ink, line, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin),
                  inside.parts());
}

}  // namespace vellora::metafile
