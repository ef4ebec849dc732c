#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Inverse": the complement of every byte, whatever the number of channels.
class CInverseFilter final : public PlainFilter<CInverseFilter> {
public:
    CInverseFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
