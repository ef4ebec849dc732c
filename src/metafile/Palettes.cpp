#include "metafile/Palettes.h"

#include <algorithm>

namespace vellora::metafile {
namespace {

constexpr std::size_t kMaxEntries = 1024;

}  // namespace

PalettePtr paletteFrom(RecordView record, std::size_t offset, std::size_t count) {
    auto palette = std::make_shared<Palette>();
    for (std::size_t i = 0; i < count && record.has(offset + i * 4, 4); ++i) {
        const std::size_t at = offset + i * 4;
        palette->push_back(qRgb(record.u8(at), record.u8(at + 1), record.u8(at + 2)));
    }
    return palette;
}

PalettePtr withEntries(const Palette& palette, std::size_t start, const Palette& colors) {
    auto changed = std::make_shared<Palette>(palette);
    for (std::size_t i = 0; i < colors.size() && start + i < changed->size(); ++i)
        (*changed)[start + i] = colors[i];
    return changed;
}

PalettePtr resized(const Palette& palette, std::size_t count) {
    auto changed = std::make_shared<Palette>(palette);
    changed->resize(std::min(count, kMaxEntries), qRgb(0, 0, 0));
    return changed;
}

}  // namespace vellora::metafile
