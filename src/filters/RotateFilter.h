#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Rotate".
class CRotateFilter final : public FactorFilter<CRotateFilter, 1> {
public:
    CRotateFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
