#include "filters/ColorMatrixFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, -100, 64, label::kRed},
    {100, -100, 32, label::kGreen},
    {100, -100, 0, label::kBlue},
}};

}  // namespace

CColorMatrixFilter::CColorMatrixFilter()
    : FactorFilter(kParams, FilterCategory::Adjustment, {64, 32, 0}) {}

bool CColorMatrixFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CColorMatrixFilter::GetName() const {
    return u"Color Matrix";
}

}  // namespace vellora
