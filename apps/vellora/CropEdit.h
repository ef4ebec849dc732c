#pragma once

#include "Edits.h"

namespace vellora::cli {

/// "X,Y,W,H" in pixels of the photo as it is shown on the stage.
void addCropEdit(Edits& edits, const QString& argument);

}  // namespace vellora::cli
