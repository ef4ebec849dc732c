#pragma once

#include <QPainterPath>
#include <initializer_list>

namespace vellora::clipgen {

QPainterPath disc(QPointF centre, double radius);
QPainterPath oval(QPointF centre, double across, double down, double angle = 0);
QPainterPath box(const QRectF& rect, double corner = 0);
QPainterPath polygon(std::initializer_list<QPointF> points);
/// A star with its first point upwards.
QPainterPath star(QPointF centre, double outer, double inner, int points, double angle = 0);
/// A star whose points and hollows are round.
QPainterPath scallop(QPointF centre, double outer, double inner, int points);
QPainterPath heart(QPointF centre, double size, double angle = 0);
/// A leaf or petal from its stem, pointing by degrees clockwise from the right.
QPainterPath leaf(QPointF stem, double length, double width, double angle);
/// A band of one width along a path, with round ends.
QPainterPath strand(const QPainterPath& along, double width);
QPainterPath curve(QPointF from, QPointF a, QPointF b, QPointF to);
/// A spiral that starts at its middle.
QPainterPath spiral(QPointF centre, double radius, double turns, double angle, bool clockwise);
/// The mirror image about an upright line.
QPainterPath mirrored(const QPainterPath& path, double x);
QPainterPath flippedDown(const QPainterPath& path, double y);
QPainterPath turned(const QPainterPath& path, QPointF about, double angle);
QPainterPath moved(const QPainterPath& path, double x, double y);

}  // namespace vellora::clipgen
