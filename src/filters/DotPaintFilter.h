#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Dot Paint".
class CDotPaintFilter final : public PlainFilter<CDotPaintFilter> {
public:
    CDotPaintFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
