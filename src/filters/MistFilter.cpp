#include "filters/MistFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 20, 70, label::kMistDensity},
    {},
    {},
}};

}  // namespace

CMistFilter::CMistFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {70}) {}

bool CMistFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CMistFilter::GetName() const {
    return u"Mist";
}

}  // namespace vellora
