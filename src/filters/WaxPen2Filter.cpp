#include "filters/WaxPen2Filter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {80, 1, 25, label::kStrokeSize},
    {100, 1, 50, label::kPenHardness},
    {40, 0, 30, label::kGrain},
}};

}  // namespace

CWaxPenFilter2::CWaxPenFilter2() : FactorFilter(kParams, FilterCategory::ArtEffect, {25, 30, 15}) {}

bool CWaxPenFilter2::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CWaxPenFilter2::GetName() const {
    return u"Hard Pastels";
}

}  // namespace vellora
