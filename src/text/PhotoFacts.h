#pragma once

#include <QDate>

#include <vellora/base/PhotoListNode.h>

namespace vellora {

class CDVDImage;

/// The host's record behind an edit record; null when none is bound. Defined by the model, so that
/// macros need to know no more of it.
const _PHOTO_LIST_NODE* photoOf(const CDVDImage& record);

/// Today, for the date macro. Tests set it; an invalid date goes back to the clock.
QDate macroDate();
void setMacroDate(QDate date);

}  // namespace vellora
