#pragma once

/// @file
/// Making random filters repeatable.

#include <cstdint>

#include <vellora/base/Export.h>

namespace vellora {

/// Restarts the module's random generator, and replaces the clock from which some filters seed it
/// by a fixed time, so that the filters applied next give the same bytes whenever this is called
/// with the same value before them.
VELLORA_EXPORT void FixRandomSeed(std::uint32_t seed);

/// Lets the filters seed themselves from the clock again.
VELLORA_EXPORT void ReleaseRandomSeed();

}  // namespace vellora
