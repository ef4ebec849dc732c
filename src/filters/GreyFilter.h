#pragma once

#include "filters/FactorFilter.h"

namespace vellora {

/// "Grey": one grey value for all three channels.
///
/// The luma weights of ITU-R BT.601 fall on the bytes in their order, blue 0.299, green 0.587, red
/// 0.114, so that old shows keep their look.
class CGreyFilter final : public PlainFilter<CGreyFilter> {
public:
    CGreyFilter();
    bool Apply(IplImage** image) override;
    [[nodiscard]] const char16_t* GetName() const override;
};

}  // namespace vellora
