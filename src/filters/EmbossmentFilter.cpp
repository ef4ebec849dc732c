#include "filters/EmbossmentFilter.h"

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

CEmbossmentFilter::CEmbossmentFilter()
    : FactorFilter(kParams, FilterCategory::ArtEffect, {64, 1}) {}

bool CEmbossmentFilter::Apply(IplImage** image) {
    cv::Mat picture = matView(image);
    if (picture.empty() || picture.depth() != CV_8U) {
        return false;
    }
    if (picture.channels() == 1 || picture.channels() == 3) {
        applyRelief(picture, factor(1), factor(0), ReliefScan::TopLeftFirst);
    }
    return true;
}

const char16_t* CEmbossmentFilter::GetName() const {
    return u"Embossment";
}

}  // namespace vellora
