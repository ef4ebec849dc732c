#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Canvas".
class CCanvasFilter final : public FactorFilter<CCanvasFilter, 1> {
public:
    CCanvasFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
