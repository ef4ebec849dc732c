#include "filters/SmoothFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {10, 0, 5, label::kAmount},
    {},
    {},
}};

}  // namespace

CSmoothFilter::CSmoothFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {5}) {}

bool CSmoothFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CSmoothFilter::GetName() const {
    return u"Gauss Smooth";
}

}  // namespace vellora
