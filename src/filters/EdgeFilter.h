#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Contour": outlines, in the darkened colours of the photo with their saturation scaled by
/// `Saturation` per cent, where the brightness smoothed over `Kernel Size` / 10 pixels changes by
/// `Threshold` or more. Applies to every image that it can and always returns true.
class CEdgeFilter final : public FactorFilter<CEdgeFilter, 3> {
public:
    CEdgeFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
