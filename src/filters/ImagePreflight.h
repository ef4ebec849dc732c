#pragma once

#include <new>

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

/// Runs the work of a filter and tells whether there was enough memory for it.
template <class Work>
bool runsInMemory(Work work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const cv::Exception& error) {
        if (error.code != cv::Error::StsNoMem) {
            throw;
        }
        return false;
    }
    return true;
}

}  // namespace vellora
