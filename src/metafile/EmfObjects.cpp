#include <algorithm>
#include <cmath>

#include "metafile/EmfReader.h"
#include "metafile/EmfRecords.h"
#include "metafile/Palettes.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kStockObject = 0x80000000;
constexpr std::uint32_t kMaxUserDashes = 16;
constexpr std::size_t kFaceUnits = 32;

FontObject fontFrom(RecordView log) {
    FontObject font;
    font.height = log.i32(0);
    font.width = log.i32(4);
    font.escapement = log.i32(8);
    font.weight = log.i32(16);
    font.italic = log.u8(20) != 0;
    font.underline = log.u8(21) != 0;
    font.strikeOut = log.u8(22) != 0;
    font.charSet = log.u8(23);
    font.pitchAndFamily = log.u8(27);
    for (std::size_t i = 0; i < kFaceUnits && log.u16(28 + i * 2) != 0; ++i)
        font.face += QChar(log.u16(28 + i * 2));
    return font;
}

}  // namespace

const BrushObject* EmfReader::brush(std::uint32_t handle) const {
    const GraphicsObject* const object = m_objects.find(handle);
    return object == nullptr ? nullptr : std::get_if<BrushObject>(object);
}

void EmfReader::selectObject(std::uint32_t handle) {
    if ((handle & kStockObject) != 0)
        m_canvas.select(stockObject(handle & ~kStockObject));
    else if (const GraphicsObject* object = m_objects.find(handle))
        m_canvas.select(*object);
}

bool EmfReader::playObjects(std::uint32_t type, RecordView record) {
    const std::uint32_t handle = record.u32(8);
    switch (type) {
        case emf::kSelectObject:
        case emf::kSelectPalette:
            selectObject(handle);
            return true;
        case emf::kDeleteObject:
            m_objects.remove(handle);
            return true;
        case emf::kCreatePen:
            m_objects.set(handle, penFromStyle(record.u32(12), record.i32(16), record.u32(24)));
            return true;
        case emf::kExtCreatePen:
            createExtendedPen(record);
            return true;
        case emf::kCreateBrush:
            m_objects.set(handle, brushFromStyle(record.u32(12), record.u32(16), record.u32(20)));
            return true;
        case emf::kCreateMonoBrush:
            createPatternBrush(record, true);
            return true;
        case emf::kCreateDibBrush:
            createPatternBrush(record, false);
            return true;
        case emf::kCreateFont:
            m_objects.set(handle, fontFrom(record.from(12)));
            return true;
        default:
            return false;
    }
}

/// A pen's brush is taken as its colour; hatched and patterned lines are drawn solid.
void EmfReader::createExtendedPen(RecordView record) {
    PenObject pen = penFromStyle(record.u32(28), record.u32(32), record.u32(40));
    if (!pen.geometric)
        pen.width = 0;
    if (record.u32(36) == 1)
        pen.style = PenObject::Style::Null;
    const std::uint32_t count = std::min(record.u32(48), kMaxUserDashes);
    if (pen.style == PenObject::Style::User) {
        for (std::size_t i = 0; i < count && record.has(52 + i * 4, 4); ++i)
            pen.userDashes.append(record.u32(52 + i * 4));
        if (pen.userDashes.size() % 2 != 0)
            pen.userDashes += QList<qreal>(pen.userDashes);
        if (pen.userDashes.isEmpty())
            pen.style = PenObject::Style::Solid;
    }
    m_objects.set(record.u32(8), pen);
}

void EmfReader::createPatternBrush(RecordView record, bool mono) {
    BrushObject brush;
    brush.tile = bitmap(record, 16, record.u32(12));
    // A tile that cannot be read leaves a brush that paints nothing.
    if (brush.tile.isNull())
        brush.style = BrushObject::Style::Null;
    else
        brush.style = mono ? BrushObject::Style::MonoPattern : BrushObject::Style::Pattern;
    m_objects.set(record.u32(8), brush);
}

bool EmfReader::playPalettes(std::uint32_t type, RecordView record) {
    const std::uint32_t handle = record.u32(8);
    GraphicsObject* const object = m_objects.find(handle);
    PalettePtr* const palette = object == nullptr ? nullptr : std::get_if<PalettePtr>(object);
    switch (type) {
        case emf::kCreatePalette:
            m_objects.set(handle, paletteFrom(record, 16, record.u16(14)));
            return true;
        case emf::kSetPaletteEntries:
            if (palette != nullptr && *palette != nullptr) {
                *palette = withEntries(**palette, record.u32(12),
                                       *paletteFrom(record, 20, record.u32(16)));
            }
            return true;
        case emf::kResizePalette:
            if (palette != nullptr && *palette != nullptr) {
                *palette = resized(**palette, record.u32(12));
            }
            return true;
        default:
            return false;
    }
}

}  // namespace vellora::metafile
