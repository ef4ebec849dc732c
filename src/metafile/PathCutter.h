#pragma once

#include <QPainterPath>
#include <QRectF>

namespace vellora::metafile {

/// The part of a filled path that shows inside an area, with straight edges only. Time grows with
/// the points alone, however far away they lie.
QPainterPath cutFilled(const QPainterPath& path, const QRectF& area);

}  // namespace vellora::metafile
