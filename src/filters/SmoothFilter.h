#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Gauss Smooth".
class CSmoothFilter final : public FactorFilter<CSmoothFilter, 1> {
public:
    CSmoothFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
