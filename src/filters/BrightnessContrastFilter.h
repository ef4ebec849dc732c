#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Brightness Contrast".
class CBrightnessContrastFilter final : public FactorFilter<CBrightnessContrastFilter, 2> {
public:
    CBrightnessContrastFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
