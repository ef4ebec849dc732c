#include "filters/CarveFilter.h"

#include <algorithm>
#include <limits>

#include "filters/ImagePreflight.h"
#include "filters/Relief.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {255, 0, 64, label::kBrightness},
    {5, 1, 1, label::kShadowDepth},
    {},
}};

}  // namespace

CCarveFilter::CCarveFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {64, 1}) {}

bool CCarveFilter::Apply(IplImage** image) {
    cv::Mat picture = matView(image);
    if (picture.empty() || picture.depth() != CV_8U) {
        return false;
    }
    if (picture.channels() == 1 || picture.channels() == 3) {
        // The most negative depth has no opposite; one less reaches as far.
        const int depth = std::max(factor(1), -std::numeric_limits<std::int32_t>::max());
        applyRelief(picture, -depth, factor(0), ReliefScan::BottomRightFirst);
    }
    return true;
}

const char16_t* CCarveFilter::GetName() const {
    return u"Carve";
}

}  // namespace vellora
