#pragma once

#include <QStringList>

#include <vellora/text/TextBrushSettings.h>

namespace vellora {

/// The settings with which the text brush dialog opens.
///
/// Whatever the caller's record does not say starts as white to red at 90 degrees. The angle of
/// a gradient is not taken over: it starts at 90 again. A texture that is not in the list is
/// replaced by the first one.
///
/// @param caller    May be null.
/// @param textures  The names in the list.
TextBrushSettings openingBrush(const TextBrushSettings* caller, const QStringList& textures);

}  // namespace vellora
