#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Gauss Smooth": a Gaussian blur of 2 * `Amount` + 1 pixels square.
class CSmoothFilter final : public FactorFilter<CSmoothFilter, 1> {
public:
    CSmoothFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
