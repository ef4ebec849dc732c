#include "metafile/EmfReader.h"

#include <algorithm>
#include <cmath>

#include "metafile/EmfRecords.h"
#include "metafile/RecordCatalogue.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kSignature = 0x464D4520;
constexpr std::uint32_t kGdiPlusSignature = 0x2B464D45;
constexpr std::size_t kSmallestHeader = 88;
constexpr std::size_t kHeaderWithMicrometres = 108;
constexpr double kInch = 25.4;
constexpr double kNaturalDots = 96;

QRectF rectOf(RecordView record, std::size_t offset) {
    return {QPointF(record.i32(offset), record.i32(offset + 4)),
            QPointF(record.i32(offset + 8), record.i32(offset + 12))};
}

QTransform transformOf(RecordView record, std::size_t offset) {
    return {record.f32(offset),      record.f32(offset + 4),  record.f32(offset + 8),
            record.f32(offset + 12), record.f32(offset + 16), record.f32(offset + 20)};
}

/// Records that change nothing a clip shows: hints to the device, colour management, printer
/// escapes, and operations that read back what was painted, which a transparent ground does not
/// hold.
bool isWithoutEffect(std::uint32_t type) {
    switch (type) {
        case emf::kSetMapperFlags:
        case emf::kSetStretchMode:  // images are always drawn smooth
        case emf::kSetColorAdjustment:
        case emf::kRealizePalette:
        case emf::kExtFloodFill:
        case emf::kFlattenPath:  // curves stay curves, which look the same
        case emf::kInvertRegion:
        case emf::kSetIcmMode:
        case emf::kCreateColorSpace:
        case emf::kSetColorSpace:
        case emf::kDeleteColorSpace:
        case emf::kGlsRecord:
        case emf::kGlsBoundedRecord:
        case emf::kPixelFormat:
        case emf::kDrawEscape:
        case emf::kExtEscape:
        case emf::kForceUfiMapping:
        case emf::kNamedEscape:
        case emf::kColorCorrectPalette:
        case emf::kSetIcmProfileA:
        case emf::kSetIcmProfileW:
        case emf::kSetLayout:
        case emf::kSetLinkedUfis:
        case emf::kColorMatchToTarget:
        case emf::kCreateColorSpaceW:
            return true;
        default:
            return false;
    }
}

}  // namespace

bool EmfReader::recognises(RecordView file) {
    return file.has(0, kSmallestHeader) && file.u32(0) == emf::kHeader &&
           file.u32(40) == kSignature;
}

EmfReader::EmfReader(RecordView file, PictureData& data)
    : m_file(file), m_data(data), m_objects(file.u16(56)), m_canvas(data.list, data.work, 1) {
    readHeader();
    setTolerance(data);
}

void EmfReader::readHeader() {
    const QSizeF device(m_file.i32(72), m_file.i32(76));
    QSizeF millimetres(m_file.i32(80), m_file.i32(84));
    if (m_file.u32(4) >= kHeaderWithMicrometres && m_file.i32(100) > 0 && m_file.i32(104) > 0)
        millimetres = QSizeF(m_file.i32(100), m_file.i32(104)) / 1000;
    if (!device.isEmpty() && !millimetres.isEmpty())
        m_dotsPerMm = {device.width() / millimetres.width(),
                       device.height() / millimetres.height()};
    m_canvas.state().page.setDotsPerMillimetre(m_dotsPerMm);

    const QRectF frame = rectOf(m_file, 24);
    if (frame.isValid()) {
        m_data.frame = QRectF(
            frame.x() / 100 * m_dotsPerMm.width(), frame.y() / 100 * m_dotsPerMm.height(),
            frame.width() / 100 * m_dotsPerMm.width(), frame.height() / 100 * m_dotsPerMm.height());
        m_data.naturalSize = frame.size() / 100 / kInch * kNaturalDots;
        return;
    }
    const QRectF bounds = rectOf(m_file, 8).adjusted(0, 0, 1, 1);
    if (bounds.isValid()) {
        m_data.frame = bounds;
        m_data.naturalSize =
            QSizeF(bounds.width() / m_dotsPerMm.width(), bounds.height() / m_dotsPerMm.height()) /
            kInch * kNaturalDots;
    }
}

void EmfReader::play() {
    std::size_t at = 0;
    while (m_file.has(at, 8)) {
        const std::uint32_t type = m_file.u32(at);
        const std::uint32_t size = m_file.u32(at + 4);
        const RecordView record = m_file.part(at, size);
        if (size < 8 || record.isEmpty() || !countRecord(m_data, type))
            return;
        if (type == emf::kEof)
            return;
        const RecordKind* const kind = findRecord(emfRecords(), type);
        if (kind != nullptr && size < kind->minimumBytes)
            ++m_data.tally.tooShort;
        else
            play(type, record);
        at += size;
    }
}

void EmfReader::play(std::uint32_t type, RecordView record) {
    if (type == emf::kComment) {
        // Programs that write GDI+ records put the plain ones beside them; those are played.
        if (record.u32(12) == kGdiPlusSignature)
            ++m_data.tally.gdiPlus;
        return;
    }
    if (isWithoutEffect(type))
        return;
    static_cast<void>(
        playLines(type, record) || playPolys(type, record) || playObjects(type, record) ||
        playMapping(type, record) || playModes(type, record) || playShapes(type, record) ||
        playPaths(type, record) || playClips(type, record) || playTexts(type, record) ||
        playBitmaps(type, record) || playRegions(type, record) || playPalettes(type, record));
}

bool EmfReader::playMapping(std::uint32_t type, RecordView record) {
    DrawState& state = m_canvas.state();
    const QPointF pair(record.i32(8), record.i32(12));
    switch (type) {
        case emf::kSetMapMode:
            state.page.setMapMode(record.u32(8));
            return true;
        case emf::kSetWindowExt:
            state.page.setWindowExtent({pair.x(), pair.y()});
            return true;
        case emf::kSetWindowOrg:
            state.page.setWindowOrigin(pair);
            return true;
        case emf::kSetViewportExt:
            state.page.setViewportExtent({pair.x(), pair.y()});
            return true;
        case emf::kSetViewportOrg:
            state.page.setViewportOrigin(pair);
            return true;
        case emf::kScaleWindowExt:
            state.page.scaleWindowExtent({pair.x(), double(record.i32(16))},
                                         {pair.y(), double(record.i32(20))});
            return true;
        case emf::kScaleViewportExt:
            state.page.scaleViewportExtent({pair.x(), double(record.i32(16))},
                                           {pair.y(), double(record.i32(20))});
            return true;
        case emf::kSetWorldTransform:
            m_canvas.setWorld(transformOf(record, 8));
            return true;
        case emf::kModifyWorldTransform: {
            const QTransform change = transformOf(record, 8);
            switch (record.u32(32)) {
                case 1:
                    state.world.reset();
                    break;
                case 2:
                    m_canvas.setWorld(change * state.world);
                    break;
                case 3:
                    m_canvas.setWorld(state.world * change);
                    break;
                case 4:
                    m_canvas.setWorld(change);
                    break;
                default:
                    break;
            }
            return true;
        }
        default:
            return false;
    }
}

bool EmfReader::playModes(std::uint32_t type, RecordView record) {
    DrawState& state = m_canvas.state();
    const std::uint32_t value = record.u32(8);
    switch (type) {
        case emf::kSetBackMode:
            state.opaqueBack = value == 2;
            return true;
        case emf::kSetPolyFillMode:
            state.fillRule = value == 2 ? Qt::WindingFill : Qt::OddEvenFill;
            return true;
        case emf::kSetRop2:
            state.rop2 = value;
            return true;
        case emf::kSetTextAlign:
            state.textAlign = value;
            return true;
        case emf::kSetTextColor:
            state.textColor = value;
            return true;
        case emf::kSetBackColor:
            state.backColor = value;
            return true;
        case emf::kSetBrushOrg:
            state.brushOrigin = QPointF(record.i32(8), record.i32(12));
            return true;
        case emf::kSetArcDirection:
            state.clockwise = value == 2;
            return true;
        case emf::kSetMiterLimit:
            // Written as a whole number by some programs and as a float by others.
            state.miterLimit = value < 0x10000 ? static_cast<double>(value) : record.f32(8);
            if (!(state.miterLimit >= 1))
                state.miterLimit = 1;
            return true;
        case emf::kSetTextJustification:
            state.breakExtra =
                record.i32(12) > 0 ? static_cast<double>(record.i32(8)) / record.i32(12) : 0;
            return true;
        case emf::kSave:
            m_canvas.save();
            return true;
        case emf::kRestore:
            m_canvas.restore(record.i32(8));
            return true;
        default:
            return false;
    }
}

}  // namespace vellora::metafile
