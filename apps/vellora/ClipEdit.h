#pragma once

#include "Edits.h"

namespace vellora::cli {

/// "FILE@X,Y[,CX,CY]" in stage units. Without a size the clip keeps its own proportions.
void addClipEdit(Edits& edits, const QString& argument);

}  // namespace vellora::cli
