#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Wave".
class CWaveFilter final : public FactorFilter<CWaveFilter, 3> {
public:
    CWaveFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
