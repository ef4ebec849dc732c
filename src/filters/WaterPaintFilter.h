#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Water Paint".
class CWaterPaintFilter final : public FactorFilter<CWaterPaintFilter, 1> {
public:
    CWaterPaintFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
