#pragma once

#include <QPixmap>
#include <memory>
#include <vector>

#include <vellora/filters/FilterInterface.h>

namespace vellora {

class CPhotoProcessor;

/// Side of a thumbnail, in logical pixels.
inline constexpr int kThumbnailSide = 89;

/// A photo reduced and seen through each filter with its present parameters, on white squares.
///
/// @param ratio  Device pixels for each logical pixel.
/// @return One picture for each filter; none for a photo without a picture.
std::vector<QPixmap> makeThumbnails(
    const CPhotoProcessor& photo,
    const std::vector<std::unique_ptr<COpencvFilterInterface>>& filters, double ratio);

}  // namespace vellora
