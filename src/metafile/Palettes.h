#pragma once

#include "metafile/GraphicsObjects.h"
#include "metafile/RecordView.h"

namespace vellora::metafile {

/// The colours from an offset of a record on, as many of `count` as it holds.
PalettePtr paletteFrom(RecordView record, std::size_t offset, std::size_t count);

/// A palette with the entries from `start` on replaced, as far as it has them.
PalettePtr withEntries(const Palette& palette, std::size_t start, const Palette& colors);

/// A palette with another number of entries, 1024 at most; new ones are black.
PalettePtr resized(const Palette& palette, std::size_t count);

}  // namespace vellora::metafile
