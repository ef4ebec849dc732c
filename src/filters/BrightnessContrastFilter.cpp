#include "filters/BrightnessContrastFilter.h"

#include <algorithm>
#include <cmath>

#include <opencv2/core.hpp>

#include "filters/ImagePreflight.h"
#include "filters/RowBands.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {200, -200, 0, label::kBrightness},
    {90, -90, 0, label::kContrast},
    {},
}};

/// The value that each byte becomes.
cv::Mat levelTable(int brightness, int contrast) {
    constexpr double kRadiansPerDegree = 0.017453292519943295;
    const double gain =
        contrast < 1 ? std::cos(contrast * kRadiansPerDegree) : contrast / 100.0 + 1.0;
    cv::Mat table(1, 256, CV_8U);
    for (int byte = 0; byte < 256; ++byte) {
        const double moved = std::clamp(static_cast<double>(byte) + brightness, 0.0, 255.0);
        const double stretched = (moved - 128.0) * gain + 128.0;
        table.at<uchar>(byte) = static_cast<uchar>(std::clamp(stretched, 0.0, 255.0));
    }
    return table;
}

}  // namespace

CBrightnessContrastFilter::CBrightnessContrastFilter()
    : FactorFilter(kParams, FilterCategory::Adjustment, {0, 0}) {}

bool CBrightnessContrastFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    return runsInMemory([&] {
        const cv::Mat table = levelTable(factor(0), factor(1));
        forEachRowBand(pixels, [&table](cv::Mat& rows) { cv::LUT(rows, table, rows); });
    });
}

const char16_t* CBrightnessContrastFilter::GetName() const {
    return u"Brightness Contrast";
}

}  // namespace vellora
