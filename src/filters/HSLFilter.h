#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "HSL".
class CHSLFilter final : public FactorFilter<CHSLFilter, 3, std::array<std::size_t, 3>{2, 0, 1}> {
public:
    CHSLFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
