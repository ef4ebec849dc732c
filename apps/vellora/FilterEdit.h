#pragma once

#include "Edits.h"

namespace vellora::cli {

/// "NAME[=F1[,F2[,F3]]]": factors that are not given keep their initial values.
void addFilterEdit(Edits& edits, const QString& argument);

/// "X,Y,W,H" as fractions: the region of the region filter added last.
void setFilterRegion(Edits& edits, const QString& argument);

}  // namespace vellora::cli
