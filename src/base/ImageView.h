#pragma once

#include <QImage>

#include <opencv2/core.hpp>

#include <vellora/base/ImagePtr.h>

class QPainter;

namespace vellora {

/// A new 8-bit, 3-channel image, its pixels not initialised; null when it cannot be made.
ImagePtr makeImage(int width, int height);

/// A new 8-bit, 3-channel image with a copy of the pixels of `source`; null when it cannot be made.
ImagePtr copyImage(const cv::Mat& source);

/// The picture as a `QImage` that shares its pixels; valid as long as they are.
QImage imageView(const cv::Mat& bgr);

/// The pixels of a `QImage::Format_BGR888` image as a matrix that shares them. Detaches the image.
cv::Mat matView(QImage& bgr);

/// Draws a blue-green-red picture unscaled with its top-left corner at (x, y) in the painter's
/// coordinates, over what is there. Copies rows where the target has the same pixel format.
void drawPicture(QPainter& painter, int x, int y, const cv::Mat& bgr);

}  // namespace vellora
