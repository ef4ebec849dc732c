#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Carve".
class CCarveFilter final
    : public FactorFilter<CCarveFilter, 2, std::array<std::size_t, 3>{1, 0, 2}> {
public:
    CCarveFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
