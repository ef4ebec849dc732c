#pragma once

#include "Edits.h"

namespace vellora::cli {

/// "TEXT@X,Y" in stage units, in the style that the options before it have set.
void addTextEdit(Edits& edits, const QString& argument);

// Each changes the style of the texts that follow.
void setTextFont(Edits& edits, const QString& family);
void setTextFontSize(Edits& edits, const QString& points);
void setTextColour(Edits& edits, const QString& colour);
/// The number of a style of the catalogue, from 1.
void setTextEffect(Edits& edits, const QString& number);
void setTextBold(Edits& edits, bool on);
void setTextItalic(Edits& edits, bool on);
void setTextUnderline(Edits& edits, bool on);
void setTextShadow(Edits& edits, bool on);

}  // namespace vellora::cli
