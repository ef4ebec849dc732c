#pragma once

#include "filters/FactorFilter.h"
#include "filters/FilterRegion.h"

namespace vellora {

/// "Depth Dim": a shallow depth of field. Every pixel becomes the mean of a box that grows with the
/// distance from the focus, which is the middle of the region or, without one, of the picture. Can
/// be stopped on its way.
class CDepthDimFilter final : public COpencvFilterInterface {
public:
    CDepthDimFilter();
    bool Apply(IplImage** image) override;
    /// Carries the region only.
    [[nodiscard]] COpencvFilterInterface* Clone() const override;
    [[nodiscard]] const char16_t* GetName() const override;
    [[nodiscard]] bool HasROI() const override;
    void SetROI(float x, float y, float cx, float cy) override;
    void GetROI(float* x, float* y, float* cx, float* cy) const override;

private:
    FilterRegion m_region;
};

}  // namespace vellora
