#include <algorithm>

#include "metafile/EmfReader.h"
#include "metafile/EmfRecords.h"
#include "metafile/SymbolText.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kOpaque = 0x0002;
constexpr std::uint32_t kClipped = 0x0004;
constexpr std::uint32_t kGlyphIndices = 0x0010;
constexpr std::uint32_t kNoRect = 0x0100;
constexpr std::uint32_t kSmallChars = 0x0200;
constexpr std::uint32_t kPairs = 0x2000;
constexpr std::size_t kTextBlock = 40;

QString textAt(RecordView record, std::size_t offset, std::size_t count, bool wide,
               const FontObject& font) {
    const RecordView bytes = record.part(offset, count * (wide ? 2 : 1));
    if (!wide)
        return decodeBytes(font, QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                            static_cast<qsizetype>(bytes.size())));
    QString text;
    for (std::size_t i = 0; i < bytes.size() / 2; ++i)
        text += QChar(bytes.u16(i * 2));
    return text;
}

QRectF boxAt(RecordView record, std::size_t offset) {
    return {QPointF(record.i32(offset), record.i32(offset + 4)),
            QPointF(record.i32(offset + 8), record.i32(offset + 12))};
}

}  // namespace

bool EmfReader::playTexts(std::uint32_t type, RecordView record) {
    switch (type) {
        case emf::kTextA:
        case emf::kTextW:
            playText(record, 36, type == emf::kTextW);
            return true;
        case emf::kPolyTextA:
        case emf::kPolyTextW: {
            const std::uint64_t count =
                std::min<std::uint64_t>(record.u32(36), record.size() / kTextBlock);
            for (std::size_t i = 0; i < count && record.has(40 + i * kTextBlock, kTextBlock); ++i)
                playText(record, 40 + i * kTextBlock, type == emf::kPolyTextW);
            return true;
        }
        case emf::kSmallText:
            playSmallText(record);
            return true;
        default:
            return false;
    }
}

/// A text whose description lies at an offset. Glyph numbers mean nothing without the font they
/// were taken from, so such text is left out.
void EmfReader::playText(RecordView record, std::size_t offset, bool wide) {
    const std::uint32_t options = record.u32(offset + 16);
    const std::size_t count = std::min<std::size_t>(record.u32(offset + 8), kMaxTextLength);
    TextRun run;
    run.at = QPointF(record.i32(offset), record.i32(offset + 4));
    run.box = boxAt(record, offset + 20);
    run.fillsBox = (options & kOpaque) != 0;
    run.clipsToBox = (options & kClipped) != 0;
    if ((options & kGlyphIndices) == 0)
        run.text = textAt(record, record.u32(offset + 12), count, wide, m_canvas.state().font);
    const std::size_t advances = record.u32(offset + 36);
    const std::size_t step = (options & kPairs) != 0 ? 8 : 4;
    if (advances >= offset && record.has(advances, count * step)) {
        for (std::size_t i = 0; i < count; ++i)
            run.advances.push_back(record.i32(advances + i * step));
    }
    m_canvas.text(run);
}

void EmfReader::playSmallText(RecordView record) {
    const std::uint32_t options = record.u32(20);
    const std::size_t count = std::min<std::size_t>(record.u32(16), kMaxTextLength);
    const bool hasBox = (options & kNoRect) == 0;
    TextRun run;
    run.at = QPointF(record.i32(8), record.i32(12));
    if (hasBox) {
        run.box = boxAt(record, 36);
        run.fillsBox = (options & kOpaque) != 0;
        run.clipsToBox = (options & kClipped) != 0;
    }
    if ((options & kGlyphIndices) == 0) {
        const std::size_t at = hasBox ? 52 : 36;
        const bool wide = (options & kSmallChars) == 0;
        // Narrow units are the low bytes of UTF-16, whatever the font's character set.
        if (wide) {
            run.text = textAt(record, at, count, true, m_canvas.state().font);
        } else {
            for (std::size_t i = 0; i < count && record.has(at + i, 1); ++i)
                run.text += QChar(char16_t{record.u8(at + i)});
        }
    }
    m_canvas.text(run);
}

}  // namespace vellora::metafile
