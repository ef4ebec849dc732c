#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Wood": a two-level picture; a pixel becomes white where the mean of its channels is 128 or more
/// and black elsewhere.
class CWoodFilter final : public PlainFilter<CWoodFilter> {
public:
    CWoodFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
