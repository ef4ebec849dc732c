#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Rain": light streaks that fall from the upper right, at random places. A streak is twice a
/// random length between `Minimum length` and `Maximum length` pixels long.
class CRainFilter final : public FactorFilter<CRainFilter, 3> {
public:
    CRainFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
