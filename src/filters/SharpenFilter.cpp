#include "filters/SharpenFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {150, 1, 50, label::kAmount},
    {},
    {},
}};

}  // namespace

CSharpenFilter::CSharpenFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {50}) {}

bool CSharpenFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CSharpenFilter::GetName() const {
    return u"Sharpen";
}

}  // namespace vellora
