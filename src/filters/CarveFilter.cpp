#include "filters/CarveFilter.h"

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

bool CCarveFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CCarveFilter::GetName() const {
    return u"Carve";
}

}  // namespace vellora
