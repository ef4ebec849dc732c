#pragma once

#include <cstdint>

namespace vellora {

/// String ids of texts that the canvas shows.
inline constexpr std::int32_t kDoubleClickToEdit = 3002;

}  // namespace vellora
