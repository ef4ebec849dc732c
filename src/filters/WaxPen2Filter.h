#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Hard Pastels".
class CWaxPenFilter2 final : public FactorFilter<CWaxPenFilter2, 3> {
public:
    CWaxPenFilter2();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
