#include "filters/HSLFilter.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {180, -180, 0, label::kHue},
    {255, -255, 0, label::kSaturation},
    {255, -255, 0, label::kLightness},
}};

}  // namespace

CHSLFilter::CHSLFilter() : FactorFilter(kParams, FilterCategory::Adjustment, {0, 0, 0}) {}

bool CHSLFilter::Apply(IplImage** /*image*/) {
    return false;
}

const char16_t* CHSLFilter::GetName() const {
    return u"HSL";
}

}  // namespace vellora
