#pragma once

#include <QPainterPath>

namespace vellora {

/// The path with its outer contours turning clockwise: fonts differ in that, and shapes that turn
/// opposite ways would cut holes into each other.
QPainterPath turnedClockwise(const QPainterPath& path);

/// The path with its curves turned into lines, fine enough for so many device pixels per unit.
QPainterPath flattened(const QPainterPath& path, double scale);

/// The area that a pen of that width covers along closed contours, with round joins, to be filled
/// by the winding rule.
///
/// @param scale  Device pixels per unit, for the smoothness of curves.
QPainterPath widened(const QPainterPath& path, double width, double scale);

/// The area that an outline from `widened` covers on its way along `way`, both ends included.
QPainterPath swept(const QPainterPath& path, QPointF way, double scale);

}  // namespace vellora
