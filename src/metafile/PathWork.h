#pragma once

#include <QPainterPath>

namespace vellora::metafile {

/// Work of filling a path beside its points and its area. The rasteriser goes through the crossings
/// of a row for each edge in it, so many long edges cost by their square, whether they show or not.
/// @param path  in pixels of a picture with sides of about `kWorkSide`
/// @param times  how often each edge is there: the outline of a line has two for one
double edgeWork(const QPainterPath& path, double times = 1);

}  // namespace vellora::metafile
