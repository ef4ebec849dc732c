#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Wax Paint".
class CWaxPenFilter final : public FactorFilter<CWaxPenFilter, 2> {
public:
    CWaxPenFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
