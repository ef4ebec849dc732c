#include "filters/RainFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 15, label::kRainMinimum},
    {100, 1, 30, label::kRainMaximum},
    {10000, 1, 5000, label::kRainDrops},
}};

}  // namespace

CRainFilter::CRainFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {15, 730, 65}) {}

bool CRainFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CRainFilter::GetName() const {
    return u"Rain";
}

}  // namespace vellora
