#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Rotate": turns the picture freely about its centre; its size stays.
///
/// Factor 500 is no turn, 0 and 1000 are half a turn. Corners that the turn uncovers are grey 128.
/// A picture with a side over 1000 pixels is turned at reduced resolution and enlarged again.
class CRotateFilter final : public FactorFilter<CRotateFilter, 1> {
public:
    CRotateFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
