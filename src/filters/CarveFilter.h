#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Carve": a relief lit from one corner. Every value becomes itself less the value `Shadow Depth`
/// rows up and columns to the left, plus the brightness.
class CCarveFilter final
    : public FactorFilter<CCarveFilter, 2, std::array<std::size_t, 3>{1, 0, 2}> {
public:
    CCarveFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
