#pragma once

#include <QString>

#include <opencv2/core.hpp>

namespace vellora {

/// Writes a blue-green-red picture as a JPEG file.
///
/// The file appears under its name only when it is complete; after a failure whatever stood there
/// before is unchanged.
///
/// @param quality  0 to 100; values outside are taken as the nearest.
/// @return Whether the file was written.
bool writeJpeg(const QString& path, const cv::Mat& bgr, int quality);

}  // namespace vellora
