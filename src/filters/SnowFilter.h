#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Snow".
class CSnowFilter final : public FactorFilter<CSnowFilter, 3> {
public:
    CSnowFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
