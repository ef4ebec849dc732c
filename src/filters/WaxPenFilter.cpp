#include "filters/WaxPenFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {85, 1, 40, label::kStrokeSize},
    {100, 1, 50, label::kPenHardness},
    {},
}};

}  // namespace

CWaxPenFilter::CWaxPenFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {40, 20}) {}

bool CWaxPenFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CWaxPenFilter::GetName() const {
    return u"Wax Paint";
}

}  // namespace vellora
