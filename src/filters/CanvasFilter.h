#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Canvas": every pixel is taken from a random place up to `Range` columns and rows away. An axis
/// on which that place falls outside the picture is not displaced. Draws two numbers per pixel.
class CCanvasFilter final : public FactorFilter<CCanvasFilter, 1> {
public:
    CCanvasFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
