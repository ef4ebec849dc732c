#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Brightness Contrast": moves every value by the brightness, then stretches its distance to 128.
///
/// A contrast c below 1 scales by cos(c degrees), from 1 upwards by 1 + c / 100: the two halves of
/// the scale are different curves.
class CBrightnessContrastFilter final : public FactorFilter<CBrightnessContrastFilter, 2> {
public:
    CBrightnessContrastFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
