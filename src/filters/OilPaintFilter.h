#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Oil Paint": random slanted strokes up to a third of `Stroke Size` long, each in the colour of
/// the photo under its centre. Where strokes overlap, their mean is shown.
class COilPaintFilter final : public FactorFilter<COilPaintFilter, 1> {
public:
    COilPaintFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
