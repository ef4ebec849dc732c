#include "filters/BrightnessContrastFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {200, -200, 0, label::kBrightness},
    {90, -90, 0, label::kContrast},
    {},
}};

}  // namespace

CBrightnessContrastFilter::CBrightnessContrastFilter()
    : FactorFilter(kParams, FilterCategory::Adjustment, {0, 0}) {}

bool CBrightnessContrastFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CBrightnessContrastFilter::GetName() const {
    return u"Brightness Contrast";
}

}  // namespace vellora
