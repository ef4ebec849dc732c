#include "filters/SnowFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 1, 300, label::kBigFlakes},
    {1000, 1, 150, label::kMiddleFlakes},
    {1000, 1, 600, label::kSmallFlakes},
}};

}  // namespace

CSnowFilter::CSnowFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {300, 40, 20}) {}

bool CSnowFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CSnowFilter::GetName() const {
    return u"Snow";
}

}  // namespace vellora
