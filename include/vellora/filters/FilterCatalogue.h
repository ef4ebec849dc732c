#pragma once

/// @file
/// The catalogue of filters.

#include <span>

#include <vellora/base/Export.h>
#include <vellora/filters/FilterInterface.h>

namespace vellora {

/// Makes a filter with its initial factors.
///
/// @param name  The filter's name; letter case counts.
/// @return A new filter owned by the caller, or null for an unknown name or a null pointer.
[[nodiscard]] VELLORA_EXPORT COpencvFilterInterface* CreateFilterByName(const char16_t* name);

/// The prototypes in catalogue order. They belong to the module, live until it is unloaded and are
/// never applied: clone the one that is wanted.
[[nodiscard]] VELLORA_EXPORT std::span<const COpencvFilterInterface* const> GetFilterPrototypes();

/// The English text of a descriptor's `label_id`; empty for an unknown id.
[[nodiscard]] VELLORA_EXPORT const char16_t* GetFilterLabel(std::int32_t label_id);

}  // namespace vellora
