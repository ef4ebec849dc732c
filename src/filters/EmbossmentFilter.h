#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Embossment": a relief lit from the other corner than "Carve". Every value becomes itself less
/// the value `Shadow Depth` rows down and columns to the right, plus the brightness.
class CEmbossmentFilter final
    : public FactorFilter<CEmbossmentFilter, 2, std::array<std::size_t, 3>{1, 0, 2}> {
public:
    CEmbossmentFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
