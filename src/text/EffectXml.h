#pragma once

#include <vellora/text/TextEffect.h>

namespace vellora {

class XmlNode;

/// Reads an effect record from its element, of a text sprite or of the catalogue. Only the layers
/// whose flag is on are read; what is missing stays as it is in the record.
/// @return False, and the record is as it was, without the font's name or size.
bool readTextEffect(const XmlNode& element, TextEffectRecord& effect);

/// Writes the record as an element "text_effect" of the project file being written.
void writeTextEffect(int depth, const TextEffectRecord& effect);

}  // namespace vellora
