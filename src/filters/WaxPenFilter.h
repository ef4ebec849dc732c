#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Wax Paint": random crayon strokes, half of `Stroke Size` long, each in the colour of the photo
/// under its centre; what was painted first stays on top. A softer pen leaves gaps. Seeds the
/// generator from the clock and can be stopped on its way.
class CWaxPenFilter final : public FactorFilter<CWaxPenFilter, 2> {
public:
    CWaxPenFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
