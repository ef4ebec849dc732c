#include "clips/Forms.h"

#include <QPainterPathStroker>
#include <QTransform>
#include <cmath>
#include <numbers>

namespace vellora::clipgen {
namespace {

constexpr double kRadians = std::numbers::pi / 180;

QPointF around(QPointF centre, double radius, double angle) {
    return centre + QPointF(std::cos(angle * kRadians), std::sin(angle * kRadians)) * radius;
}

}  // namespace

QPainterPath disc(QPointF centre, double radius) {
    return oval(centre, radius, radius);
}

QPainterPath oval(QPointF centre, double across, double down, double angle) {
    QPainterPath path;
    path.addEllipse(centre, across, down);
    return angle == 0 ? path : turned(path, centre, angle);
}

QPainterPath box(const QRectF& rect, double corner) {
    QPainterPath path;
    if (corner > 0)
        path.addRoundedRect(rect, corner, corner);
    else
        path.addRect(rect);
    return path;
}

QPainterPath polygon(std::initializer_list<QPointF> points) {
    QPainterPath path(*points.begin());
    for (const QPointF* point = points.begin() + 1; point != points.end(); ++point)
        path.lineTo(*point);
    path.closeSubpath();
    return path;
}

QPainterPath star(QPointF centre, double outer, double inner, int points, double angle) {
    QPainterPath path;
    for (int i = 0; i < 2 * points; ++i) {
        const QPointF point =
            around(centre, i % 2 == 0 ? outer : inner, angle - 90 + 180.0 * i / points);
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

QPainterPath scallop(QPointF centre, double outer, double inner, int points) {
    QPainterPath path(around(centre, inner, -90));
    for (int i = 0; i < points; ++i) {
        const double from = -90 + 360.0 * i / points;
        const double step = 360.0 / points;
        path.cubicTo(around(centre, outer * 1.06, from + step * 0.12),
                     around(centre, outer * 1.06, from + step * 0.88),
                     around(centre, inner, from + step));
    }
    path.closeSubpath();
    return path;
}

QPainterPath heart(QPointF centre, double size, double angle) {
    const double s = size;
    QPainterPath path(QPointF(0, 0.9 * s));
    path.cubicTo(-0.35 * s, 0.55 * s, -s, 0.15 * s, -s, -0.32 * s);
    path.cubicTo(-s, -0.95 * s, -0.2 * s, -1.02 * s, 0, -0.42 * s);
    path.cubicTo(0.2 * s, -1.02 * s, s, -0.95 * s, s, -0.32 * s);
    path.cubicTo(s, 0.15 * s, 0.35 * s, 0.55 * s, 0, 0.9 * s);
    path.closeSubpath();
    return turned(path, {}, angle).translated(centre);
}

QPainterPath leaf(QPointF stem, double length, double width, double angle) {
    QPainterPath path;
    path.cubicTo(0.25 * length, -0.75 * width, 0.7 * length, -0.6 * width, length, 0);
    path.cubicTo(0.7 * length, 0.6 * width, 0.25 * length, 0.75 * width, 0, 0);
    return turned(path, {}, angle).translated(stem);
}

QPainterPath strand(const QPainterPath& along, double width) {
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    stroker.setCurveThreshold(0.02);
    QPainterPath path = stroker.createStroke(along);
    path.setFillRule(Qt::WindingFill);
    return path;
}

QPainterPath curve(QPointF from, QPointF a, QPointF b, QPointF to) {
    QPainterPath path(from);
    path.cubicTo(a, b, to);
    return path;
}

QPainterPath spiral(QPointF centre, double radius, double turns, double angle, bool clockwise) {
    constexpr int perTurn = 12;
    const int steps = static_cast<int>(turns * perTurn);
    const double way = clockwise ? 1 : -1;
    const auto at = [&](double step) {
        const double part = step / steps;
        return around(centre, radius * part * part, angle + way * step * 360 / perTurn);
    };
    QPainterPath path(at(0));
    for (int i = 0; i < steps; ++i) {
        // The handle that makes a quadratic piece pass through the middle of the step.
        const QPointF handle = 2 * at(i + 0.5) - (at(i) + at(i + 1)) / 2;
        path.quadTo(handle, at(i + 1));
    }
    return path;
}

QPainterPath mirrored(const QPainterPath& path, double x) {
    return QTransform(-1, 0, 0, 1, 2 * x, 0).map(path);
}

QPainterPath flippedDown(const QPainterPath& path, double y) {
    return QTransform(1, 0, 0, -1, 0, 2 * y).map(path);
}

QPainterPath turned(const QPainterPath& path, QPointF about, double angle) {
    QTransform turn;
    turn.translate(about.x(), about.y());
    turn.rotate(angle);
    turn.translate(-about.x(), -about.y());
    return turn.map(path);
}

QPainterPath moved(const QPainterPath& path, double x, double y) {
    return path.translated(x, y);
}

}  // namespace vellora::clipgen
