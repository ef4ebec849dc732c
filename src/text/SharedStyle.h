#pragma once

#include <memory>

#include <vellora/text/TextStyle.h>

namespace vellora {

/// The style as a record that all sprites of the same style share while one of them lives: most of
/// the many texts of a slideshow look alike, and the record is large. Any thread.
std::shared_ptr<const TextStyle> sharedStyle(const TextStyle& style);

/// The style of a new text.
std::shared_ptr<const TextStyle> defaultStyle();

}  // namespace vellora
