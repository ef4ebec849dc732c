#include "metafile/EmfReader.h"
#include "metafile/EmfRecords.h"

namespace vellora::metafile {
namespace {

constexpr std::size_t kRegionHeader = 32;
constexpr std::size_t kPolyPoints = 28;

QPointF pointAt(RecordView record, std::size_t offset) {
    return {static_cast<double>(record.i32(offset)), static_cast<double>(record.i32(offset + 4))};
}

QRectF boxAt(RecordView record, std::size_t offset) {
    return {pointAt(record, offset), pointAt(record, offset + 8)};
}

std::optional<ClipMode> clipMode(std::uint32_t mode) {
    if (mode < static_cast<std::uint32_t>(ClipMode::And) ||
        mode > static_cast<std::uint32_t>(ClipMode::Copy))
        return {};
    return static_cast<ClipMode>(mode);
}

}  // namespace

std::optional<QPolygonF> EmfReader::points(RecordView record, std::size_t offset,
                                           std::uint64_t count, bool small) const {
    const std::size_t each = small ? 4 : 8;
    if (count > record.size() / each || !record.has(offset, count * each))
        return {};
    QPolygonF result;
    result.reserve(static_cast<qsizetype>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = offset + i * each;
        result.append(small ? QPointF(record.i16(at), record.i16(at + 2)) : pointAt(record, at));
    }
    return result;
}

std::optional<std::vector<QPolygonF>> EmfReader::rings(RecordView record, bool small) const {
    const std::uint64_t count = record.u32(24);
    if (count > record.size() / 4 || !record.has(32, count * 4))
        return {};
    std::vector<QPolygonF> result;
    std::size_t at = 32 + count * 4;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t length = record.u32(32 + i * 4);
        std::optional<QPolygonF> ring = points(record, at, length, small);
        if (!ring)
            return {};
        at += length * (small ? 4 : 8);
        result.push_back(std::move(*ring));
    }
    return result;
}

bool EmfReader::playPolys(std::uint32_t type, RecordView record) {
    if (type >= emf::kPolyBezier16 && type <= emf::kPolyPolygon16) {
        playPoly(type - emf::kPolyBezier16 + emf::kPolyBezier, record, true);
        return true;
    }
    if (type >= emf::kPolyBezier && type <= emf::kPolyPolygon) {
        playPoly(type, record, false);
        return true;
    }
    if (type != emf::kPolyDraw && type != emf::kPolyDraw16)
        return false;
    const bool small = type == emf::kPolyDraw16;
    const std::uint64_t count = record.u32(24);
    const std::optional<QPolygonF> list = points(record, kPolyPoints, count, small);
    const std::size_t typesAt = kPolyPoints + count * (small ? 4 : 8);
    if (!list || !record.has(typesAt, count))
        return true;
    const unsigned char* const types = record.data() + typesAt;
    m_canvas.polyDraw(*list, std::vector<std::uint8_t>(types, types + count));
    return true;
}

void EmfReader::playPoly(std::uint32_t kind, RecordView record, bool small) {
    if (kind == emf::kPolyPolyline || kind == emf::kPolyPolygon) {
        if (const auto list = rings(record, small)) {
            if (kind == emf::kPolyPolygon)
                m_canvas.polygons(*list);
            else
                m_canvas.polylines(*list);
        }
        return;
    }
    const std::optional<QPolygonF> list = points(record, kPolyPoints, record.u32(24), small);
    if (!list || list->isEmpty())
        return;
    switch (kind) {
        case emf::kPolyBezier:
            m_canvas.bezier(*list);
            break;
        case emf::kPolygon:
            m_canvas.polygons({*list});
            break;
        case emf::kPolyline:
            m_canvas.polyline(*list);
            break;
        case emf::kPolyBezierTo:
            m_canvas.bezierTo(*list);
            break;
        default:
            m_canvas.polylineTo(*list);
            break;
    }
}

bool EmfReader::playLines(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kMoveTo:
            m_canvas.moveTo(pointAt(record, 8));
            return true;
        case emf::kLineTo:
            m_canvas.lineTo(pointAt(record, 8));
            return true;
        case emf::kSetPixel:
            m_canvas.pixel(pointAt(record, 8), record.u32(16));
            return true;
        case emf::kAngleArc:
            m_canvas.angleArc(pointAt(record, 8), record.u32(16), record.f32(20), record.f32(24));
            return true;
        default:
            return false;
    }
}

bool EmfReader::playShapes(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kRectangle:
            m_canvas.rectangle(boxAt(record, 8));
            return true;
        case emf::kEllipse:
            m_canvas.ellipse(boxAt(record, 8));
            return true;
        case emf::kRoundRect:
            m_canvas.roundRectangle(boxAt(record, 8), {static_cast<double>(record.i32(24)),
                                                       static_cast<double>(record.i32(28))});
            return true;
        case emf::kArc:
            m_canvas.arc(ArcKind::Arc, boxAt(record, 8), pointAt(record, 24), pointAt(record, 32));
            return true;
        case emf::kArcTo:
            m_canvas.arc(ArcKind::ArcTo, boxAt(record, 8), pointAt(record, 24),
                         pointAt(record, 32));
            return true;
        case emf::kChord:
            m_canvas.arc(ArcKind::Chord, boxAt(record, 8), pointAt(record, 24),
                         pointAt(record, 32));
            return true;
        case emf::kPie:
            m_canvas.arc(ArcKind::Pie, boxAt(record, 8), pointAt(record, 24), pointAt(record, 32));
            return true;
        default:
            return false;
    }
}

bool EmfReader::playPaths(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kBeginPath:
            m_canvas.beginPath();
            return true;
        case emf::kEndPath:
            m_canvas.endPath();
            return true;
        case emf::kCloseFigure:
            m_canvas.closeFigure();
            return true;
        case emf::kFillPath:
            m_canvas.paintPath(true, false);
            return true;
        case emf::kStrokePath:
            m_canvas.paintPath(false, true);
            return true;
        case emf::kStrokeAndFillPath:
            m_canvas.paintPath(true, true);
            return true;
        case emf::kWidenPath:
            m_canvas.widenPath();
            return true;
        case emf::kAbortPath:
            m_canvas.abortPath();
            return true;
        case emf::kSelectClipPath:
            if (const auto mode = clipMode(record.u32(8)))
                m_canvas.clipToPath(*mode);
            return true;
        default:
            return false;
    }
}

bool EmfReader::playClips(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kIntersectClipRect:
            m_canvas.clipTo(boxAt(record, 8), ClipMode::And);
            return true;
        case emf::kExcludeClipRect:
            m_canvas.clipTo(boxAt(record, 8), ClipMode::Diff);
            return true;
        case emf::kOffsetClip:
            m_canvas.offsetClip(pointAt(record, 8));
            return true;
        case emf::kSetMetaRegion:
            m_canvas.keepClip();
            return true;
        case emf::kSelectClipRegion: {
            const std::optional<ClipMode> mode = clipMode(record.u32(12));
            const std::uint32_t bytes = record.u32(8);
            if (mode == ClipMode::Copy && bytes == 0)
                m_canvas.state().clip.reset();
            else if (mode && bytes >= kRegionHeader)
                m_canvas.clipTo(region(record, 16, bytes), *mode);
            return true;
        }
        default:
            return false;
    }
}

/// Rectangles of region data; they never overlap.
QPainterPath EmfReader::region(RecordView record, std::size_t offset, std::size_t bytes) const {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    const RecordView data = record.part(offset, bytes);
    const std::uint64_t count = data.u32(8);
    if (!data.has(kRegionHeader, 0) || count > (data.size() - kRegionHeader) / 16)
        return path;
    for (std::size_t i = 0; i < count; ++i)
        path.addRect(boxAt(data, kRegionHeader + i * 16).normalized());
    return path;
}

bool EmfReader::playRegions(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kPaintRegion:
            m_canvas.fillRegion(region(record, 28, record.u32(24)), m_canvas.state().brush);
            return true;
        case emf::kFillRegion:
            if (const BrushObject* ink = brush(record.u32(28)))
                m_canvas.fillRegion(region(record, 32, record.u32(24)), *ink);
            return true;
        case emf::kFrameRegion:
            if (const BrushObject* ink = brush(record.u32(28)))
                m_canvas.frameRegion(
                    region(record, 40, record.u32(24)), *ink,
                    {static_cast<double>(record.i32(32)), static_cast<double>(record.i32(36))});
            return true;
        default:
            return false;
    }
}

}  // namespace vellora::metafile
