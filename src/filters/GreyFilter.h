#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Grey".
class CGreyFilter final : public PlainFilter<CGreyFilter> {
public:
    CGreyFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
