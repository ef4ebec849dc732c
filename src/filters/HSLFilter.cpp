#include "filters/HSLFilter.h"

#include <algorithm>
#include <cstdint>

#include <opencv2/imgproc.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {180, -180, 0, label::kHue},
    {255, -255, 0, label::kSaturation},
    {255, -255, 0, label::kLightness},
}};

constexpr int kLargestHue = 180;
constexpr int kLargestValue = 255;

uchar limited(int value, int offset, int largest) {
    const std::int64_t sum = static_cast<std::int64_t>(value) + offset;
    return static_cast<uchar>(std::clamp<std::int64_t>(sum, 0, largest));
}

/// For each byte of hue, lightness and saturation what it becomes.
cv::Mat offsetTable(int hue, int lightness, int saturation) {
    cv::Mat table(1, 256, CV_8UC3);
    for (int byte = 0; byte < 256; ++byte) {
        table.at<cv::Vec3b>(byte) = {limited(byte, hue, kLargestHue),
                                     limited(byte, lightness, kLargestValue),
                                     limited(byte, saturation, kLargestValue)};
    }
    return table;
}

}  // namespace

CHSLFilter::CHSLFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {0, 0, 0}) {}

bool CHSLFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory([&] {
        const cv::Mat table = offsetTable(factor(0), factor(2), factor(1));
        forEachRowBand(pixels, [&table](cv::Mat& rows) {
            cv::Mat hls;
            cv::cvtColor(rows, hls, cv::COLOR_BGR2HLS);
            cv::LUT(hls, table, hls);
            cv::cvtColor(hls, rows, cv::COLOR_HLS2BGR);
        });
    });
}

const char16_t* CHSLFilter::GetName() const {
    return u"HSL";
}

}  // namespace vellora
