#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Contour".
class CEdgeFilter final : public FactorFilter<CEdgeFilter, 3> {
public:
    CEdgeFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
