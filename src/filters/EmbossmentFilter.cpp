#include "filters/EmbossmentFilter.h"

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

bool CEmbossmentFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CEmbossmentFilter::GetName() const {
    return u"Embossment";
}

}  // namespace vellora
