#include <algorithm>

#include "metafile/SymbolText.h"
#include "metafile/WmfReader.h"
#include "metafile/WmfRecords.h"

namespace vellora::metafile {
namespace {

constexpr std::uint16_t kOpaque = 0x0002;
constexpr std::uint16_t kClipped = 0x0004;
constexpr std::uint16_t kGlyphIndices = 0x0010;

/// Parameters stand in reverse order: y before x.
QPointF pointAt(RecordView record, std::size_t offset) {
    return {static_cast<double>(record.i16(offset + 2)), static_cast<double>(record.i16(offset))};
}

/// Bottom, right, top, left.
QRectF boxAt(RecordView record, std::size_t offset) {
    return {pointAt(record, offset + 4), pointAt(record, offset)};
}

QPolygonF pointsAt(RecordView record, std::size_t offset, std::size_t count) {
    QPolygonF points;
    if (!record.has(offset, count * 4))
        return points;
    points.reserve(static_cast<qsizetype>(count));
    for (std::size_t i = 0; i < count; ++i)
        points.append(QPointF(record.i16(offset + i * 4), record.i16(offset + i * 4 + 2)));
    return points;
}

QByteArray bytesAt(RecordView record, std::size_t offset, std::size_t count) {
    const RecordView bytes = record.part(offset, count);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<qsizetype>(bytes.size()));
}

}  // namespace

bool WmfReader::playShapes(std::uint16_t function, RecordView record) {
    switch (function) {
        case wmf::kMoveTo:
            m_canvas.moveTo(pointAt(record, 0));
            return true;
        case wmf::kLineTo:
            m_canvas.lineTo(pointAt(record, 0));
            return true;
        case wmf::kPolygon:
            m_canvas.polygons({pointsAt(record, 2, record.u16(0))});
            return true;
        case wmf::kPolyline:
            m_canvas.polyline(pointsAt(record, 2, record.u16(0)));
            return true;
        case wmf::kPolyPolygon:
            playPolyPolygon(record);
            return true;
        case wmf::kRectangle:
            m_canvas.rectangle(boxAt(record, 0));
            return true;
        case wmf::kEllipse:
            m_canvas.ellipse(boxAt(record, 0));
            return true;
        case wmf::kRoundRect:
            m_canvas.roundRectangle(boxAt(record, 4), {static_cast<double>(record.i16(2)),
                                                       static_cast<double>(record.i16(0))});
            return true;
        case wmf::kArc:
            m_canvas.arc(ArcKind::Arc, boxAt(record, 8), pointAt(record, 4), pointAt(record, 0));
            return true;
        case wmf::kChord:
            m_canvas.arc(ArcKind::Chord, boxAt(record, 8), pointAt(record, 4), pointAt(record, 0));
            return true;
        case wmf::kPie:
            m_canvas.arc(ArcKind::Pie, boxAt(record, 8), pointAt(record, 4), pointAt(record, 0));
            return true;
        case wmf::kSetPixel:
            m_canvas.pixel(pointAt(record, 4), record.u32(0));
            return true;
        default:
            return false;
    }
}

void WmfReader::playPolyPolygon(RecordView record) {
    const std::size_t count = record.u16(0);
    if (!record.has(2, count * 2))
        return;
    std::vector<QPolygonF> rings;
    std::size_t at = 2 + count * 2;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t length = record.u16(2 + i * 2);
        if (!record.has(at, length * 4))
            return;
        rings.push_back(pointsAt(record, at, length));
        at += length * 4;
    }
    m_canvas.polygons(rings);
}

bool WmfReader::playClips(std::uint16_t function, RecordView record) {
    switch (function) {
        case wmf::kIntersectClipRect:
            m_canvas.clipTo(boxAt(record, 0), ClipMode::And);
            return true;
        case wmf::kExcludeClipRect:
            m_canvas.clipTo(boxAt(record, 0), ClipMode::Diff);
            return true;
        case wmf::kOffsetClip:
            m_canvas.offsetClip(pointAt(record, 0));
            return true;
        case wmf::kSelectClipRegion:
            if (const auto* region = find<RegionObject>(record.u16(0)))
                m_canvas.select(*region);
            else if (record.u16(0) == 0)
                m_canvas.state().clip.reset();
            return true;
        default:
            return false;
    }
}

bool WmfReader::playRegions(std::uint16_t function, RecordView record) {
    const auto* const region = find<RegionObject>(record.u16(0));
    const auto* const brush = find<BrushObject>(record.u16(2));
    switch (function) {
        case wmf::kPaintRegion:
            if (region != nullptr)
                m_canvas.fillRegion(region->path, m_canvas.state().brush);
            return true;
        case wmf::kFillRegion:
            if (region != nullptr && brush != nullptr)
                m_canvas.fillRegion(region->path, *brush);
            return true;
        case wmf::kFrameRegion:
            if (region != nullptr && brush != nullptr)
                m_canvas.frameRegion(
                    region->path, *brush,
                    {static_cast<double>(record.i16(6)), static_cast<double>(record.i16(4))});
            return true;
        default:
            return false;
    }
}

bool WmfReader::playTexts(std::uint16_t function, RecordView record) {
    if (function == wmf::kExtTextOut) {
        playExtText(record);
        return true;
    }
    if (function != wmf::kTextOut)
        return false;
    const std::size_t length = record.u16(0);
    TextRun run;
    run.text = decodeBytes(m_canvas.state().font, bytesAt(record, 2, length));
    run.at = pointAt(record, 2 + ((length + 1) & ~std::size_t{1}));
    m_canvas.text(run);
    return true;
}

/// Glyph numbers mean nothing without the font they were taken from, so such text is left out.
void WmfReader::playExtText(RecordView record) {
    const std::size_t length = record.u16(4);
    const std::uint16_t options = record.u16(6);
    const bool hasBox = (options & (kOpaque | kClipped)) != 0;
    const std::size_t textAt = hasBox ? 16 : 8;
    TextRun run;
    run.at = pointAt(record, 0);
    if (hasBox) {
        run.box =
            QRectF(QPointF(record.i16(8), record.i16(10)), QPointF(record.i16(12), record.i16(14)));
        run.fillsBox = (options & kOpaque) != 0;
        run.clipsToBox = (options & kClipped) != 0;
    }
    if ((options & kGlyphIndices) == 0)
        run.text = decodeBytes(m_canvas.state().font, bytesAt(record, textAt, length));
    const std::size_t advances = textAt + ((length + 1) & ~std::size_t{1});
    // One distance a byte; double-byte text is laid out by its font.
    if (static_cast<std::size_t>(run.text.size()) == length && record.has(advances, length * 2)) {
        for (std::size_t i = 0; i < length; ++i)
            run.advances.push_back(record.i16(advances + i * 2));
    }
    m_canvas.text(run);
}

}  // namespace vellora::metafile
