#include "filters/WaterPaintFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 30, 65, label::kWaterSize},
    {},
    {},
}};

}  // namespace

CWaterPaintFilter::CWaterPaintFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {65}) {}

bool CWaterPaintFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CWaterPaintFilter::GetName() const {
    return u"Water Paint";
}

}  // namespace vellora
