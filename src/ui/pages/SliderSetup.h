#pragma once

#include <array>
#include <cstdint>

namespace vellora {

class COpencvFilterInterface;

/// One of the sliders under the filter list.
struct FilterSlider {
    bool offered = false;
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t value = 0;
    std::int32_t labelId = 0;
    std::int32_t* cell = nullptr;  ///< The filter's parameter; null when it takes none.
};

using FilterSliders = std::array<FilterSlider, 3>;

/// Sets the sliders up for a filter and restarts its parameters at the values that their
/// descriptors advertise. A slider is offered only when the one before it is.
FilterSliders setUpSliders(COpencvFilterInterface& filter);

}  // namespace vellora
