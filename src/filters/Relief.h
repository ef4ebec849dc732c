#pragma once

#include <opencv2/core.hpp>

namespace vellora {

enum class ReliefScan { TopLeftFirst, BottomRightFirst };

/// Replaces every pixel, in place, by the pixel less its partner plus a brightness.
///
/// @param image       8 bits per channel; every channel is worked on alike.
/// @param offset      The partner lies this many rows down and columns to the right (up and to the
///                    left when negative), limited to the picture. With the scan that moves
///                    towards the partner, the partner still holds its old value.
/// @param brightness  Added to each difference; the result is limited to 0..255.
void applyRelief(cv::Mat& image, int offset, int brightness, ReliefScan scan);

}  // namespace vellora
