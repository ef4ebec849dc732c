#pragma once

#include <algorithm>

#include <opencv2/core.hpp>

#include <vellora/base/Types.h>

namespace vellora {

/// Pixels of the picture per pixel of the stage when the picture is fitted into it. Filters whose
/// strokes are measured in stage pixels look alike in the preview and at full size.
inline double stageScale(cv::Size size) {
    return std::max(static_cast<double>(size.width) / kStageWidth,
                    static_cast<double>(size.height) / kStageHeight);
}

}  // namespace vellora
