#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Inverse".
class CInverseFilter final : public PlainFilter<CInverseFilter> {
public:
    CInverseFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
