#pragma once

#include <QString>

#include "project/Findings.h"

namespace vellora {

/// Checks a `Sprite_Data` element and what is below it.
void checkSprite(const XmlNode& node, const QString& baseFolder, Findings& findings);

}  // namespace vellora
