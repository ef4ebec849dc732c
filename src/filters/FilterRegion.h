#pragma once

namespace vellora {

/// The region of a filter: left, top, width and height in fractions of the image size.
struct FilterRegion {
    float roi_x = 0.0F;
    float roi_y = 0.0F;
    float roi_cx = 0.0F;
    float roi_cy = 0.0F;
};

}  // namespace vellora
