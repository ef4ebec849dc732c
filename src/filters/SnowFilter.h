#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Snow": soft white flakes of three classes, as many of each as its factor says. Their size grows
/// with the picture: 25 pixels in radius where the smaller side has 767. Seeds the generator from
/// the clock.
class CSnowFilter final : public FactorFilter<CSnowFilter, 3> {
public:
    CSnowFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
