#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Rain".
class CRainFilter final : public FactorFilter<CRainFilter, 3> {
public:
    CRainFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
