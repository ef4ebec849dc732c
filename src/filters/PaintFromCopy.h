#pragma once

#include "base/ImageView.h"
#include "filters/ImagePreflight.h"

namespace vellora {

/// Copies the image and calls `paint(copy, image)`, which repaints the image from the copy.
///
/// @return False for no image, one of another kind, or when there is too little memory; the image
///         is then as it was.
template <class Paint>
bool paintFromCopy(IplImage** image, Paint paint) {
    cv::Mat target = bgrView(image);
    if (target.empty()) {
        return false;
    }
    const ImagePtr copy = copyImage(target);
    if (copy == nullptr) {
        return false;
    }
    const cv::Mat source = cv::cvarrToMat(copy.get());
    if (!runsInMemory([&] { paint(source, target); })) {
        source.copyTo(target);
        return false;
    }
    return true;
}

}  // namespace vellora
