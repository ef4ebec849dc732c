#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Sharpen": every value moves away from the value one row up and one column to the left by
/// `Amount` per cent of their difference. The first row and the first column stay as they are.
class CSharpenFilter final : public FactorFilter<CSharpenFilter, 1> {
public:
    CSharpenFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
