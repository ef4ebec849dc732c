#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "None": the entry that stands for no filter. Leaves the image alone.
class CNoneFilter final : public PlainFilter<CNoneFilter> {
public:
    CNoneFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
