#pragma once

#include <QImage>
#include <cstdint>

#include "metafile/GraphicsObjects.h"
#include "metafile/Limits.h"
#include "metafile/RecordView.h"

namespace vellora::metafile {

/// A device-independent bitmap as records hold it: header with colours, and pixels.
struct DibSource {
    RecordView info;
    RecordView bits;
    /// The colours are indices into this palette rather than colours.
    bool indexesPalette = false;
    PalettePtr palette;
    /// Only blending records read the fourth byte of 32-bit pixels as alpha, multiplied in.
    bool hasAlpha = false;
};

/// Parts a bitmap whose pixels follow its header and colours.
DibSource packedDib(RecordView dib, bool indexesPalette, PalettePtr palette);

/// Decodes 1, 4, 8, 16, 24 and 32 bits, both run-length forms, bit fields and embedded JPEG and
/// PNG. Null for anything that is broken, too large, or shorter than it says.
QImage decodeDib(const DibSource& dib, BitmapBudget& budget);

}  // namespace vellora::metafile
