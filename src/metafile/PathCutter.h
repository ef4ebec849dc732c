#pragma once

#include <QPainterPath>
#include <QRectF>

namespace vellora::metafile {

/// The part of a filled path that shows inside an area, with straight edges only. Time grows with
/// the points alone, however far away they lie.
/// @param scale  pixels to a unit, by which curves are divided
QPainterPath cutFilled(const QPainterPath& path, const QRectF& area, double scale);

}  // namespace vellora::metafile
