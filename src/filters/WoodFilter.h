#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Wood".
class CWoodFilter final : public PlainFilter<CWoodFilter> {
public:
    CWoodFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
