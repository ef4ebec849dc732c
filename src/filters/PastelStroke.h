#pragma once

#include <array>
#include <span>

#include <opencv2/core.hpp>

namespace vellora {

/// One stroke of a pastel stick: straight, with blunt ends. Lengths in pixels.
struct PastelStroke {
    cv::Point2f middle;
    cv::Point2f along;  ///< Unit vector.
    float forward;      ///< Length from the middle in the direction of `along`.
    float backward;     ///< Length from the middle the other way.
    float halfWidth;
    cv::Vec3f colour;               ///< Blue, green, red.
    std::array<float, 16> streaks;  ///< Change of pressure across the width: crumbs in the stick.
};

/// How a pastel stick meets the paper.
struct PastelTouch {
    float sharpness;  ///< How suddenly the deposit sets in where the paper is high enough.
    float tooth;      ///< How much the height of the paper counts against the pressure.
};

/// Rubs the part of a stroke that lies in the tile onto the picture.
///
/// @param paper  Height of the paper, mean 0, one value for each pixel of the tile in row order.
void rubPastel(cv::Mat& picture, const cv::Rect& tile, std::span<const float> paper,
               const PastelStroke& stroke, const PastelTouch& touch);

}  // namespace vellora
