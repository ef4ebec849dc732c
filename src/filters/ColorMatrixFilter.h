#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Color Matrix": adds an offset to each channel and clamps; by default a warm tint.
class CColorMatrixFilter final : public FactorFilter<CColorMatrixFilter, 3> {
public:
    CColorMatrixFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
