#pragma once

/// @file
/// An owned image.

#include <memory>

#include <vellora/base/Export.h>
#include <vellora/base/Types.h>

namespace vellora {

struct VELLORA_EXPORT IplImageDeleter {
    void operator()(IplImage* image) const noexcept;
};

/// Owns an image and releases it with `cvReleaseImage`.
using ImagePtr = std::unique_ptr<IplImage, IplImageDeleter>;

}  // namespace vellora
