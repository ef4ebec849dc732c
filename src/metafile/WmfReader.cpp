#include "metafile/WmfReader.h"

#include <algorithm>
#include <cmath>

#include "metafile/RecordCatalogue.h"
#include "metafile/WmfRecords.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr std::size_t kPlaceableBytes = 22;
constexpr std::size_t kHeaderBytes = 18;
constexpr std::size_t kRecordHead = 6;
constexpr double kNaturalDots = 96;
/// Some writers state fewer objects than they make.
constexpr std::size_t kFewestObjects = 256;
/// Files that only give a window are drawn as if it were this many pixels long.
constexpr double kWindowPixels = 640;

RecordView afterPlaceable(RecordView file) {
    return WmfReader::isPlaceable(file) ? file.from(kPlaceableBytes) : file;
}

/// Parameters stand in reverse order: y before x.
QPointF pointAt(RecordView record, std::size_t offset) {
    return {static_cast<double>(record.i16(offset + 2)), static_cast<double>(record.i16(offset))};
}

QSizeF sizeAt(RecordView record, std::size_t offset) {
    return {static_cast<double>(record.i16(offset + 2)), static_cast<double>(record.i16(offset))};
}

QRectF placeableBox(RecordView file) {
    return QRectF(QPointF(file.i16(6), file.i16(8)), QPointF(file.i16(10), file.i16(12)))
        .normalized();
}

/// Calls back with each record's function and parameters until that returns false.
template <typename Visitor>
void forEachRecord(RecordView records, Visitor visit) {
    std::size_t at = 0;
    while (records.has(at, kRecordHead)) {
        const std::size_t words = records.u32(at);
        const RecordView record =
            words >= 3 && words <= records.size() / 2 ? records.part(at, words * 2) : RecordView();
        if (record.isEmpty() || !visit(record.u16(4), record))
            return;
        at += words * 2;
    }
}

/// Records that change nothing a clip shows: hints to the device, escapes to it, and operations
/// that read back what was painted, which a transparent ground does not hold.
bool isWithoutEffect(std::uint16_t function) {
    switch (function) {
        case wmf::kEof:
        case wmf::kRealizePalette:
        case wmf::kSetRelAbs:
        case wmf::kSetStretchMode:  // images are always drawn smooth
        case wmf::kSetMapperFlags:
        case wmf::kSetLayout:
        case wmf::kInvertRegion:
        case wmf::kFloodFill:
        case wmf::kExtFloodFill:
        case wmf::kEscape:
            return true;
        default:
            return false;
    }
}

}  // namespace

bool WmfReader::isPlaceable(RecordView file) {
    return file.has(0, kPlaceableBytes) && file.u32(0) == kPlaceableKey;
}

bool WmfReader::recognises(RecordView file) {
    const RecordView header = afterPlaceable(file);
    const std::uint16_t kind = header.u16(0);
    const std::uint16_t version = header.u16(4);
    return header.has(0, kHeaderBytes) && (kind == 1 || kind == 2) &&
           header.u16(2) == kHeaderBytes / 2 && (version == 0x0100 || version == 0x0300);
}

WmfReader::WmfReader(RecordView file, PictureData& data)
    : m_file(file),
      m_data(data),
      m_header(afterPlaceable(file)),
      m_records(m_header.from(kHeaderBytes)),
      m_mapping(findMapping()),
      m_objects(std::max<std::size_t>(m_header.u16(10), kFewestObjects)),
      m_canvas(data.list, data.work, readFrame()) {
    prepareCanvas();
    setTolerance(data);
}

WmfReader::Mapping WmfReader::findMapping() const {
    Mapping mapping;
    std::int64_t left = kMaxRecords;
    forEachRecord(m_records, [&](std::uint16_t function, RecordView record) {
        const RecordView parameters = record.from(kRecordHead);
        const bool whole = parameters.size() >= 4;
        if (function == wmf::kSetWindowOrg && whole && !mapping.windowOrigin)
            mapping.windowOrigin = pointAt(parameters, 0);
        else if (function == wmf::kSetWindowExt && whole && !mapping.windowExtent)
            mapping.windowExtent = sizeAt(parameters, 0);
        else if (function == wmf::kSetViewportOrg && whole && !mapping.viewportOrigin)
            mapping.viewportOrigin = pointAt(parameters, 0);
        else if (function == wmf::kSetViewportExt && whole && !mapping.viewportExtent)
            mapping.viewportExtent = sizeAt(parameters, 0);
        return function != wmf::kEof && --left > 0;
    });
    return mapping;
}

/// Finds the picture's frame; the result is the size of a pixel in the units of it.
double WmfReader::readFrame() {
    if (isPlaceable(m_file)) {
        const QRectF box = placeableBox(m_file);
        const double inch = m_file.u16(14) == 0 ? kNaturalDots : m_file.u16(14);
        if (!box.isEmpty()) {
            m_data.frame = QRectF(QPointF(), box.size());
            m_data.naturalSize = box.size() * kNaturalDots / inch;
            return inch / kNaturalDots;
        }
    }
    const std::optional<QSizeF> extent =
        m_mapping.viewportExtent ? m_mapping.viewportExtent : m_mapping.windowExtent;
    if (extent && extent->width() != 0 && extent->height() != 0) {
        const QSizeF size(std::abs(extent->width()), std::abs(extent->height()));
        m_data.frame = QRectF(QPointF(), size);
        m_data.naturalSize = size;
        return std::max(size.width(), size.height()) / kWindowPixels;
    }
    return 1;
}

/// The viewport of a metafile is the place where it is drawn, here the frame; one that the records
/// set themselves is what the frame is measured by.
void WmfReader::prepareCanvas() {
    if (m_data.frame.isEmpty())
        return;
    PageTransform& page = m_canvas.state().page;
    page.setMapMode(static_cast<std::uint32_t>(MapMode::Anisotropic));
    if (isPlaceable(m_file)) {
        const QRectF box = placeableBox(m_file);
        page.setWindowOrigin(box.topLeft());
        page.setWindowExtent(box.size());
    } else if (m_mapping.windowExtent) {
        page.setWindowExtent(*m_mapping.windowExtent);
    }
    page.setViewportExtent(m_data.frame.size());
    if (m_mapping.viewportExtent) {
        const QPointF origin = m_mapping.viewportOrigin.value_or(QPointF());
        m_data.frame = QRectF(origin.x(), origin.y(), m_mapping.viewportExtent->width(),
                              m_mapping.viewportExtent->height())
                           .normalized();
    }
}

void WmfReader::play() {
    forEachRecord(m_records, [this](std::uint16_t function, RecordView record) {
        if (!countRecord(m_data, function) || function == wmf::kEof)
            return false;
        const RecordKind* const kind = findRecord(wmfRecords(), function);
        if (kind != nullptr && record.size() < kind->minimumBytes)
            ++m_data.tally.tooShort;
        else
            play(function, record.from(kRecordHead));
        return true;
    });
}

void WmfReader::play(std::uint16_t function, RecordView record) {
    if (isWithoutEffect(function))
        return;
    static_cast<void>(playObjects(function, record) || playShapes(function, record) ||
                      playMapping(function, record) || playModes(function, record) ||
                      playClips(function, record) || playTexts(function, record) ||
                      playBitmaps(function, record) || playRegions(function, record));
}

bool WmfReader::playMapping(std::uint16_t function, RecordView record) {
    PageTransform& page = m_canvas.state().page;
    switch (function) {
        case wmf::kSetMapMode:
            page.setMapMode(record.u16(0));
            return true;
        case wmf::kSetWindowOrg:
            page.setWindowOrigin(pointAt(record, 0));
            return true;
        case wmf::kSetWindowExt:
            page.setWindowExtent(sizeAt(record, 0));
            return true;
        case wmf::kSetViewportOrg:
            page.setViewportOrigin(pointAt(record, 0));
            return true;
        case wmf::kSetViewportExt:
            page.setViewportExtent(sizeAt(record, 0));
            return true;
        case wmf::kOffsetWindowOrg:
            page.offsetWindowOrigin(pointAt(record, 0));
            return true;
        case wmf::kOffsetViewportOrg:
            page.offsetViewportOrigin(pointAt(record, 0));
            return true;
        case wmf::kScaleWindowExt:
            page.scaleWindowExtent(
                {static_cast<double>(record.i16(6)), static_cast<double>(record.i16(2))},
                {static_cast<double>(record.i16(4)), static_cast<double>(record.i16(0))});
            return true;
        case wmf::kScaleViewportExt:
            page.scaleViewportExtent(
                {static_cast<double>(record.i16(6)), static_cast<double>(record.i16(2))},
                {static_cast<double>(record.i16(4)), static_cast<double>(record.i16(0))});
            return true;
        default:
            return false;
    }
}

bool WmfReader::playModes(std::uint16_t function, RecordView record) {
    DrawState& state = m_canvas.state();
    const std::uint16_t value = record.u16(0);
    switch (function) {
        case wmf::kSetBackMode:
            state.opaqueBack = value == 2;
            return true;
        case wmf::kSetPolyFillMode:
            state.fillRule = value == 2 ? Qt::WindingFill : Qt::OddEvenFill;
            return true;
        case wmf::kSetRop2:
            state.rop2 = value;
            return true;
        case wmf::kSetTextAlign:
            state.textAlign = value;
            return true;
        case wmf::kSetCharExtra:
            state.charExtra = record.i16(0);
            return true;
        case wmf::kSetTextJustification:
            state.breakExtra =
                record.i16(0) > 0 ? static_cast<double>(record.i16(2)) / record.i16(0) : 0;
            return true;
        case wmf::kSetTextColor:
            state.textColor = record.u32(0);
            return true;
        case wmf::kSetBackColor:
            state.backColor = record.u32(0);
            return true;
        case wmf::kSave:
            m_canvas.save();
            return true;
        case wmf::kRestore:
            m_canvas.restore(record.i16(0));
            return true;
        default:
            return false;
    }
}

}  // namespace vellora::metafile
