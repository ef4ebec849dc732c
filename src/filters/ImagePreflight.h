#pragma once

#include <opencv2/core.hpp>
#include <opencv2/core/core_c.h>

namespace vellora {

/// The image as a `cv::Mat` that shares its pixels, without a copy; empty for a null pointer or a
/// null image.
inline cv::Mat matView(IplImage** image) {
    return image != nullptr && *image != nullptr ? cv::cvarrToMat(*image) : cv::Mat();
}

/// As `matView`, but also empty unless the image has 8 bits per channel and three channels.
inline cv::Mat bgrView(IplImage** image) {
    cv::Mat view = matView(image);
    return view.type() == CV_8UC3 ? view : cv::Mat();
}

}  // namespace vellora
