#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Embossment".
class CEmbossmentFilter final
    : public FactorFilter<CEmbossmentFilter, 2, std::array<std::size_t, 3>{1, 0, 2}> {
public:
    CEmbossmentFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
