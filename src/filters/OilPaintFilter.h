#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Oil Paint".
class COilPaintFilter final : public FactorFilter<COilPaintFilter, 1> {
public:
    COilPaintFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
