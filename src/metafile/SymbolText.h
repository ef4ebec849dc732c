#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

#include "metafile/GraphicsObjects.h"

namespace vellora::metafile {

/// Text of a record that holds bytes, by the font's character set.
QString decodeBytes(const FontObject& font, const QByteArray& bytes);

/// Whether a font shows signs at the places of letters.
bool holdsSigns(const FontObject& font);

/// The text with the signs that fonts of signs keep at the places of letters replaced by the
/// Unicode characters they show, which other fonts hold as well.
QString symbolsToUnicode(const FontObject& font, const QString& text);

}  // namespace vellora::metafile
