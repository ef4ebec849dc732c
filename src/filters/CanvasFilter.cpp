#include "filters/CanvasFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {50, 0, 5, label::kRange},
    {},
    {},
}};

}  // namespace

CCanvasFilter::CCanvasFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {5}) {}

bool CCanvasFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CCanvasFilter::GetName() const {
    return u"Canvas";
}

}  // namespace vellora
