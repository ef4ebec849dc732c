#include "filters/OilPaintFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 30, label::kStrokeSize},
    {},
    {},
}};

}  // namespace

COilPaintFilter::COilPaintFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {30}) {}

bool COilPaintFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* COilPaintFilter::GetName() const {
    return u"Oil Paint";
}

}  // namespace vellora
