#pragma once

#include <opencv2/core.hpp>

namespace vellora {

/// The outlines of a picture: where its smoothed brightness changes steeply.
class ContourMap {
public:
    /// How many rows around a pixel have a say in its byte.
    static constexpr int kReach = 7;

    /// @param picture    Blue-green-red, 8 bits; read here and not kept.
    /// @param sigma      Width of the Gaussian that smooths the gradients, in pixels.
    /// @param threshold  Steepness, in summed channel levels per pixel, where outlines begin.
    ContourMap(const cv::Mat& picture, double sigma, int threshold);

    /// One byte per pixel of the rows `first` up to but not including `last`: 0 on an outline, 255
    /// on level ground.
    [[nodiscard]] cv::Mat1b ground(int first, int last) const;

private:
    [[nodiscard]] cv::Mat1b edgePoints(int first, int last) const;

    cv::Mat1f m_brightness;
    cv::Mat1f m_smooth;
    cv::Mat1f m_slope;
    float m_threshold;
};

}  // namespace vellora
