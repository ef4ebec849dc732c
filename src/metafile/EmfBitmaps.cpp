#include <algorithm>

#include "metafile/EmfReader.h"
#include "metafile/EmfRecords.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kPaletteColors = 1;
constexpr std::uint32_t kSourceCopy = 0x00CC0020;

QRectF sizedBox(RecordView record, std::size_t at) {
    return {static_cast<double>(record.i32(at)), static_cast<double>(record.i32(at + 4)),
            static_cast<double>(record.i32(at + 8)), static_cast<double>(record.i32(at + 12))};
}

/// Pixels of one colour become open.
void openColor(QImage& image, QRgb color) {
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace_if(
            row, row + image.width(),
            [color](QRgb pixel) { return (pixel & 0x00FFFFFFU) == (color & 0x00FFFFFFU); },
            QRgb{0});
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
}

/// Pixels where the mask, laid at a place of the image, is black become open.
void applyMask(QImage& image, const QImage& mask, QPoint from, QPoint maskFrom) {
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        const std::int64_t maskY = std::int64_t{y} - from.y() + maskFrom.y();
        for (int x = 0; x < image.width(); ++x) {
            const std::int64_t maskX = std::int64_t{x} - from.x() + maskFrom.x();
            const bool inside =
                maskX >= 0 && maskY >= 0 && maskX < mask.width() && maskY < mask.height();
            if (!inside ||
                qGray(mask.pixel(static_cast<int>(maskX), static_cast<int>(maskY))) < 128)
                row[x] = 0;
        }
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace

/// The bitmap whose header and pixels lie where four fields from `at` say.
QImage EmfReader::bitmap(RecordView record, std::size_t at, std::uint32_t usage, bool alpha) {
    DibSource dib;
    dib.info = record.part(record.u32(at), record.u32(at + 4));
    dib.bits = record.part(record.u32(at + 8), record.u32(at + 12));
    dib.indexesPalette = usage == kPaletteColors;
    dib.palette = m_canvas.state().palette;
    dib.hasAlpha = alpha;
    return decodeDib(dib, m_data.bitmaps);
}

bool EmfReader::playBitmaps(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kBitBlt:
            playTransfer(record, false, false, false);
            return true;
        case emf::kStretchBlt:
            playTransfer(record, true, false, false);
            return true;
        case emf::kAlphaBlend:
            playTransfer(record, true, true, false);
            return true;
        case emf::kTransparentBlt:
            playTransfer(record, true, false, true);
            return true;
        case emf::kMaskBlt:
            playMaskTransfer(record);
            return true;
        case emf::kPlgBlt:
            playSkewedTransfer(record);
            return true;
        case emf::kGradientFill:
            playGradient(record);
            return true;
        case emf::kSetDibitsToDevice:
        case emf::kStretchDibits: {
            const bool stretched = type == emf::kStretchDibits;
            ImagePlacement placement;
            placement.image = bitmap(record, 48, record.u32(64));
            placement.source = sizedBox(record, 32);
            // Rows of the source count from the bottom, as its rows do in the file.
            placement.source.moveTop(placement.image.height() - placement.source.y() -
                                     placement.source.height());
            QRectF target(record.i32(24), record.i32(28), record.i32(72), record.i32(76));
            if (!stretched)
                target.setSize(placement.source.size());
            placement.setTarget(target);
            placement.rop = stretched ? record.u32(68) : kSourceCopy;
            if (!placement.image.isNull())
                m_canvas.image(placement);
            else if (stretched && record.u32(52) == 0)
                m_canvas.patternFill(target, placement.rop);
            return true;
        }
        default:
            return false;
    }
}

void EmfReader::playTransfer(RecordView record, bool stretched, bool blended, bool keyed) {
    const QRectF target = sizedBox(record, 24);
    const bool hasSource = record.u32(88) != 0;
    ImagePlacement placement;
    placement.rop = blended || keyed ? kSourceCopy : record.u32(40);
    if (!hasSource) {
        m_canvas.patternFill(target, placement.rop);
        return;
    }
    const std::uint32_t blend = record.u32(40);
    placement.image = bitmap(record, 84, record.u32(80), blended && (blend >> 24) == 1);
    if (placement.image.isNull())
        return;
    if (blended)
        placement.opacity = static_cast<double>((blend >> 16) & 0xFF) / 255;
    if (keyed)
        openColor(placement.image,
                  qRgb(static_cast<int>(blend & 0xFF), static_cast<int>((blend >> 8) & 0xFF),
                       static_cast<int>((blend >> 16) & 0xFF)));
    placement.source =
        QRectF(record.i32(44), record.i32(48), stretched ? record.i32(100) : target.width(),
               stretched ? record.i32(104) : target.height());
    placement.setTarget(target);
    m_canvas.image(placement);
}

void EmfReader::playMaskTransfer(RecordView record) {
    const QRectF target = sizedBox(record, 24);
    if (record.u32(88) == 0) {
        m_canvas.patternFill(target, record.u32(40));
        return;
    }
    ImagePlacement placement;
    placement.image = bitmap(record, 84, record.u32(80));
    if (placement.image.isNull())
        return;
    const QImage mask = bitmap(record, 112, record.u32(108));
    if (!mask.isNull())
        applyMask(placement.image, mask, {record.i32(44), record.i32(48)},
                  {record.i32(100), record.i32(104)});
    placement.rop = record.u32(40);
    placement.source = QRectF(record.i32(44), record.i32(48), target.width(), target.height());
    placement.setTarget(target);
    m_canvas.image(placement);
}

void EmfReader::playSkewedTransfer(RecordView record) {
    ImagePlacement placement;
    placement.image = bitmap(record, 96, record.u32(92));
    if (placement.image.isNull())
        return;
    placement.source = sizedBox(record, 48);
    const QImage mask = bitmap(record, 124, record.u32(120));
    if (!mask.isNull())
        applyMask(placement.image, mask, {record.i32(48), record.i32(52)},
                  {record.i32(112), record.i32(116)});
    placement.topLeft = QPointF(record.i32(24), record.i32(28));
    placement.topRight = QPointF(record.i32(32), record.i32(36));
    placement.bottomLeft = QPointF(record.i32(40), record.i32(44));
    m_canvas.image(placement);
}

void EmfReader::playGradient(RecordView record) {
    constexpr std::uint32_t downwards = 1;
    constexpr std::uint32_t triangles = 2;
    constexpr std::size_t vertexBytes = 16;
    const std::uint64_t count = record.u32(24);
    const std::uint64_t parts = record.u32(28);
    const std::uint32_t mode = record.u32(32);
    const std::size_t corners = mode == triangles ? 3 : 2;
    const std::size_t meshAt = 36 + count * vertexBytes;
    if (mode > triangles || count > record.size() / vertexBytes ||
        parts > record.size() / (corners * 4) || !record.has(meshAt, parts * corners * 4))
        return;
    const auto vertex = [&](std::size_t part, std::size_t corner) {
        const std::size_t index = record.u32(meshAt + (part * corners + corner) * 4);
        const std::size_t at = 36 + std::min<std::size_t>(index, count) * vertexBytes;
        return GradientVertex{
            QPointF(record.i32(at), record.i32(at + 4)),
            QColor(record.u16(at + 8) >> 8, record.u16(at + 10) >> 8, record.u16(at + 12) >> 8)};
    };
    for (std::size_t i = 0; i < parts; ++i) {
        if (mode == triangles)
            m_canvas.gradientTriangle(vertex(i, 0), vertex(i, 1), vertex(i, 2));
        else
            m_canvas.gradientRectangle(vertex(i, 0), vertex(i, 1), mode == downwards);
    }
}

}  // namespace vellora::metafile
