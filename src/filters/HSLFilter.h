#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "HSL": offsets hue, saturation and lightness.
///
/// Hue runs from 0 to 180 and is limited, not wrapped: a large shift piles colours up at the ends
/// of the scale.
class CHSLFilter final : public FactorFilter<CHSLFilter, 3, std::array<std::size_t, 3>{2, 0, 1}> {
public:
    CHSLFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
