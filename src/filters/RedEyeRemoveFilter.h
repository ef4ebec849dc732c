#pragma once

#include "filters/FactorFilter.h"
#include "filters/FilterRegion.h"

namespace vellora {

/// "Red Eye Removal": pulls red down to the mean of green and blue where red dominates, inside
/// the region. A fresh filter has an empty region and changes nothing; a region with a negative
/// fraction stands for the whole image.
class CRedEyeRemoveFilter final : public COpencvFilterInterface {
public:
    CRedEyeRemoveFilter();
    bool Apply(IplImage** image) override;
    /// Carries every field, the recorded state too.
    [[nodiscard]] COpencvFilterInterface* Clone() const override;
    [[nodiscard]] const char16_t* GetName() const override;
    std::int32_t* GetFactorOne() override;
    [[nodiscard]] bool HasROI() const override;
    void SetROI(float x, float y, float cx, float cy) override;
    void GetROI(float* x, float* y, float* cx, float* cy) const override;

private:
    std::int32_t m_threshold;
    FilterRegion m_region;
};

}  // namespace vellora
