#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Sharpen".
class CSharpenFilter final : public FactorFilter<CSharpenFilter, 1> {
public:
    CSharpenFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
