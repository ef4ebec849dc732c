#pragma once

#include <cstdint>
#include <vector>

namespace vellora {

/// The module's built-in English text of a string id, or an empty text for an unknown id.
const char16_t* builtInString(std::int32_t id);

/// All string ids of the module, rising.
std::vector<std::int32_t> builtInStringIds();

}  // namespace vellora
