#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Black&White": a grey picture of each pixel's largest channel, not a two-level one.
class CBlackWhiteFilter final : public PlainFilter<CBlackWhiteFilter> {
public:
    CBlackWhiteFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
