#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Mist".
class CMistFilter final : public FactorFilter<CMistFilter, 1> {
public:
    CMistFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
