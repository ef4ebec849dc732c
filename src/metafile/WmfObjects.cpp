#include "metafile/Palettes.h"
#include "metafile/SymbolText.h"
#include "metafile/WmfReader.h"
#include "metafile/WmfRecords.h"

namespace vellora::metafile {
namespace {

constexpr std::uint16_t kPaletteColors = 1;
constexpr std::size_t kFaceBytes = 32;
constexpr std::uint32_t kSourceCopy = 0x00CC0020;

/// Height, width, y and x, in this order.
QRectF targetAt(RecordView record, std::size_t offset) {
    return {static_cast<double>(record.i16(offset + 6)),
            static_cast<double>(record.i16(offset + 4)),
            static_cast<double>(record.i16(offset + 2)), static_cast<double>(record.i16(offset))};
}

}  // namespace

bool WmfReader::playObjects(std::uint16_t function, RecordView record) {
    switch (function) {
        case wmf::kSelectObject:
        case wmf::kSelectPalette:
            if (const GraphicsObject* object = m_objects.find(record.u16(0)))
                m_canvas.select(*object);
            return true;
        case wmf::kDeleteObject:
            m_objects.remove(record.u16(0));
            return true;
        case wmf::kCreatePen:
            m_objects.setAtLowestFree(penFromStyle(record.u16(0), record.i16(2), record.u32(6)));
            return true;
        case wmf::kCreateBrush:
            m_objects.setAtLowestFree(brushFromStyle(record.u16(0), record.u32(2), record.u16(6)));
            return true;
        case wmf::kCreateFont:
            createFont(record);
            return true;
        case wmf::kCreateDibBrush:
            createDibBrush(record);
            return true;
        case wmf::kCreatePalette:
            m_objects.setAtLowestFree(paletteFrom(record, 4, record.u16(2)));
            return true;
        case wmf::kSetPaletteEntries:
        case wmf::kAnimatePalette:
            setPaletteEntries(record);
            return true;
        case wmf::kResizePalette:
            if (PalettePtr& selected = m_canvas.state().palette; selected != nullptr)
                selected = resized(*selected, record.u16(0));
            return true;
        case wmf::kCreateRegion:
            createRegion(record);
            return true;
        case wmf::kCreatePatternBrush: {
            // Device bitmaps hold no colours of their own: such a brush paints nothing.
            BrushObject brush;
            brush.style = BrushObject::Style::Null;
            m_objects.setAtLowestFree(brush);
            return true;
        }
        case wmf::kCreateBrushOld:
        case wmf::kCreateBitmap:
        case wmf::kCreateBitmapIndirect:
            // Reserved kinds draw nothing but take their places in the table.
            m_objects.setAtLowestFree(FontObject());
            return true;
        default:
            return false;
    }
}

void WmfReader::createFont(RecordView record) {
    FontObject font;
    font.height = record.i16(0);
    font.width = record.i16(2);
    font.escapement = record.i16(4);
    font.weight = record.i16(8);
    font.italic = record.u8(10) != 0;
    font.underline = record.u8(11) != 0;
    font.strikeOut = record.u8(12) != 0;
    font.charSet = record.u8(13);
    font.pitchAndFamily = record.u8(17);
    QByteArray face;
    for (std::size_t i = 0; i < kFaceBytes && record.u8(18 + i) != 0; ++i)
        face += static_cast<char>(record.u8(18 + i));
    font.face = QString::fromLatin1(face);
    m_objects.setAtLowestFree(font);
}

/// Changes the selected palette from an entry on.
void WmfReader::setPaletteEntries(RecordView record) {
    if (PalettePtr& selected = m_canvas.state().palette; selected != nullptr)
        selected = withEntries(*selected, record.u16(0), *paletteFrom(record, 4, record.u16(2)));
}

void WmfReader::createDibBrush(RecordView record) {
    BrushObject brush;
    brush.tile = bitmap(record.from(4), record.u16(2) == kPaletteColors);
    // A tile that cannot be read leaves a brush that paints nothing.
    brush.style = brush.tile.isNull() ? BrushObject::Style::Null : BrushObject::Style::Pattern;
    m_objects.setAtLowestFree(brush);
}

/// Scans of a region: a band of rows with pairs of left and right ends.
void WmfReader::createRegion(RecordView record) {
    RegionObject region;
    region.path.setFillRule(Qt::WindingFill);
    const std::size_t scans = record.u16(10);
    std::size_t at = 22;
    for (std::size_t scan = 0; scan < scans && record.has(at, 6); ++scan) {
        const std::size_t ends = record.u16(at);
        const QPointF rows(record.i16(at + 2), record.i16(at + 4));
        at += 6;
        for (std::size_t i = 0; i + 1 < ends && record.has(at + i * 2, 4); i += 2)
            region.path.addRect(QRectF(QPointF(record.i16(at + i * 2), rows.x()),
                                       QPointF(record.i16(at + i * 2 + 2), rows.y()))
                                    .normalized());
        at += ends * 2 + 2;
    }
    m_objects.setAtLowestFree(region);
}

QImage WmfReader::bitmap(RecordView dib, bool indexesPalette) {
    return decodeDib(packedDib(dib, indexesPalette, m_canvas.state().palette), m_data.bitmaps);
}

bool WmfReader::playBitmaps(std::uint16_t function, RecordView record) {
    switch (function) {
        case wmf::kPatBlt:
            m_canvas.patternFill(targetAt(record, 4), record.u32(0));
            return true;
        case wmf::kBitBlt:
        case wmf::kStretchBlt: {
            // Device bitmaps hold no colours of their own; only forms without one draw.
            const std::size_t at = function == wmf::kBitBlt ? 10 : 14;
            if (record.size() == at + 8)
                m_canvas.patternFill(targetAt(record, at), record.u32(0));
            return true;
        }
        case wmf::kDibBitBlt:
            playDibTransfer(record, false);
            return true;
        case wmf::kDibStretchBlt:
            playDibTransfer(record, true);
            return true;
        case wmf::kStretchDib:
            playStretchDib(record);
            return true;
        case wmf::kSetDibToDevice:
            playDibToDevice(record);
            return true;
        default:
            return false;
    }
}

void WmfReader::playDibTransfer(RecordView record, bool stretched) {
    const std::size_t head = stretched ? 20 : 16;
    // Without a bitmap a reserved word stands before the target and nothing behind it.
    if (record.size() <= head + 2) {
        m_canvas.patternFill(targetAt(record, head - 6), record.u32(0));
        return;
    }
    const QRectF target = targetAt(record, head - 8);
    ImagePlacement placement;
    placement.rop = record.u32(0);
    placement.image = bitmap(record.from(head), false);
    if (placement.image.isNull())
        return;
    const std::size_t sourceAt = stretched ? 8 : 4;
    placement.source = QRectF(record.i16(sourceAt + 2), record.i16(sourceAt),
                              stretched ? record.i16(6) : target.width(),
                              stretched ? record.i16(4) : target.height());
    placement.setTarget(target);
    m_canvas.image(placement);
}

void WmfReader::playStretchDib(RecordView record) {
    const QRectF target = targetAt(record, 14);
    ImagePlacement placement;
    placement.rop = record.u32(0);
    if (record.size() <= 22) {
        m_canvas.patternFill(target, placement.rop);
        return;
    }
    placement.image = bitmap(record.from(22), record.u16(4) == kPaletteColors);
    if (placement.image.isNull())
        return;
    placement.source = QRectF(record.i16(12), record.i16(10), record.i16(8), record.i16(6));
    // Rows of the source count from the bottom, as its rows do in the file.
    placement.source.moveTop(placement.image.height() - placement.source.y() -
                             placement.source.height());
    placement.setTarget(target);
    m_canvas.image(placement);
}

void WmfReader::playDibToDevice(RecordView record) {
    ImagePlacement placement;
    placement.rop = kSourceCopy;
    placement.image = bitmap(record.from(18), record.u16(0) == kPaletteColors);
    if (placement.image.isNull())
        return;
    const QRectF target = targetAt(record, 10);
    placement.source =
        QRectF(record.i16(8), placement.image.height() - record.i16(6) - target.height(),
               target.width(), target.height());
    placement.setTarget(target);
    m_canvas.image(placement);
}

}  // namespace vellora::metafile
