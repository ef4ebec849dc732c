#include "filters/RotateFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 0, 500, label::kRotateAngle},
    {},
    {},
}};

}  // namespace

CRotateFilter::CRotateFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {500}) {}

bool CRotateFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CRotateFilter::GetName() const {
    return u"Rotate";
}

}  // namespace vellora
