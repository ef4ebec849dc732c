#include "filters/RedEyeRemoveFilter.h"

#include <algorithm>
#include <new>

#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 50, label::kRedEyeThreshold},
    {},
    {},
}};

struct PixelRange {
    int begin;
    int end;
};

/// The range of rows or columns that a start and an extent in fractions of `size` stand for.
PixelRange pixelRange(int size, float start, float extent) {
    // Clamped in floating point first: a stranger's region may hold any number.
    const auto limit = static_cast<float>(size);
    const auto toPixel = [limit](float fraction) {
        const float pixel = limit * fraction;
        return pixel >= 0.0F ? static_cast<int>(std::min(pixel, limit)) : 0;
    };
    const int begin = toPixel(start);
    return {begin, std::min(begin + toPixel(extent), size)};
}

bool anyNegative(const FilterRegion& region) {
    return region.roi_x < 0.0F || region.roi_y < 0.0F || region.roi_cx < 0.0F ||
           region.roi_cy < 0.0F;
}

}  // namespace

CRedEyeRemoveFilter::CRedEyeRemoveFilter() : m_threshold(50) {
    param_descs = kParams.data();
    is_art_effect = static_cast<std::int32_t>(FilterCategory::Adjustment);
}

bool CRedEyeRemoveFilter::Apply(IplImage** image) {
    cv::Mat pixels = bgrView(image);
    if (pixels.empty()) {
        return false;
    }
    PixelRange columns{0, pixels.cols};
    PixelRange rows{0, pixels.rows};
    if (!anyNegative(m_region)) {
        columns = pixelRange(pixels.cols, m_region.roi_x, m_region.roi_cx);
        rows = pixelRange(pixels.rows, m_region.roi_y, m_region.roi_cy);
    }
    const float threshold = static_cast<float>(m_threshold) / 25.0F;
    for (int y = rows.begin; y < rows.end; ++y) {
        auto* row = pixels.ptr<cv::Vec3b>(y);
        for (int x = columns.begin; x < columns.end; ++x) {
            cv::Vec3b& pixel = row[x];
            const float mean = static_cast<float>(pixel[0] + pixel[1]) * 0.5F;
            // With neither blue nor green, any red at all dominates without limit.
            if (static_cast<float>(pixel[2]) / mean > threshold) {
                pixel[2] = static_cast<uchar>(mean);
            }
        }
    }
    return true;
}

COpencvFilterInterface* CRedEyeRemoveFilter::Clone() const {
    return new (std::nothrow) CRedEyeRemoveFilter(*this);
}

const char16_t* CRedEyeRemoveFilter::GetName() const {
    return u"Red Eye Removal";
}

std::int32_t* CRedEyeRemoveFilter::GetFactorOne() {
    return &m_threshold;
}

bool CRedEyeRemoveFilter::HasROI() const {
    return true;
}

void CRedEyeRemoveFilter::SetROI(float x, float y, float cx, float cy) {
    m_region = {x, y, cx, cy};
}

void CRedEyeRemoveFilter::GetROI(float* x, float* y, float* cx, float* cy) const {
    *x = m_region.roi_x;
    *y = m_region.roi_y;
    *cx = m_region.roi_cx;
    *cy = m_region.roi_cy;
}

}  // namespace vellora
