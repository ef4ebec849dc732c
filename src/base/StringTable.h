#pragma once

#include <cstdint>

namespace vellora {

/// The module's built-in English text of a string id, or an empty text for an unknown id.
const char16_t* builtInString(std::int32_t id);

}  // namespace vellora
