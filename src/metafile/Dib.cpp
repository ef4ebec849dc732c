#include "metafile/Dib.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <optional>
#include <utility>

#include "base/JpegScans.h"
#include "metafile/RunLength.h"

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kInfoHeader = 40;

enum Compression : std::uint32_t { kPlain = 0, kRle8, kRle4, kBitFields, kJpeg, kPng };

struct Header {
    std::uint32_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool topDown = false;
    std::uint32_t bits = 0;
    std::uint32_t compression = kPlain;
    std::size_t colors = 0;
    std::size_t masks = 0;

    bool isCore() const { return size == kCoreHeader; }
    std::size_t colorBytes(bool indexed) const { return indexed ? 2 : isCore() ? 3 : 4; }
    std::size_t colorOffset() const { return size + masks * 4; }
    std::size_t stride() const { return ((static_cast<std::size_t>(width) * bits + 31) / 32) * 4; }
};

std::optional<Header> readHeader(RecordView info) {
    Header header;
    header.size = info.u32(0);
    std::uint32_t colors = 0;
    if (header.isCore() && info.has(0, kCoreHeader)) {
        header.width = info.u16(4);
        header.height = info.u16(6);
        header.bits = info.u16(10);
    } else if (header.size >= kInfoHeader && info.has(0, kInfoHeader)) {
        header.width = info.i32(4);
        header.height = info.i32(8);
        header.topDown = header.height < 0;
        header.height = std::abs(header.height);
        header.bits = info.u16(14);
        header.compression = info.u32(16);
        colors = info.u32(32);
    } else {
        return {};
    }
    if (header.compression == kBitFields && header.size == kInfoHeader)
        header.masks = 3;
    const std::size_t mostColors = header.bits <= 8 ? std::size_t{1} << header.bits : 0;
    header.colors = colors == 0 || colors > mostColors ? mostColors : colors;
    if (header.width <= 0 || header.height <= 0 || header.size > info.size())
        return {};
    return header;
}

std::vector<QRgb> readColors(const Header& header, const DibSource& dib) {
    std::vector<QRgb> colors(header.colors, qRgb(0, 0, 0));
    const std::size_t step = header.colorBytes(dib.indexesPalette);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const std::size_t at = header.colorOffset() + i * step;
        if (!dib.indexesPalette) {
            colors[i] = qRgb(dib.info.u8(at + 2), dib.info.u8(at + 1), dib.info.u8(at));
        } else if (dib.palette != nullptr && dib.info.u16(at) < dib.palette->size()) {
            colors[i] = dib.palette->at(dib.info.u16(at));
        } else {
            const auto level =
                static_cast<int>(255 * i / std::max<std::size_t>(colors.size() - 1, 1));
            colors[i] = qRgb(level, level, level);
        }
    }
    return colors;
}

/// One channel of pixels with bit fields.
class Channel {
public:
    explicit Channel(std::uint32_t mask)
        : m_mask(mask),
          m_shift(mask == 0 ? 0 : std::countr_zero(mask)),
          m_most(mask == 0 ? 1 : mask >> m_shift) {}

    int level(std::uint32_t pixel) const {
        return static_cast<int>(std::uint64_t{(pixel & m_mask) >> m_shift} * 255 / m_most);
    }

private:
    std::uint32_t m_mask;
    int m_shift;
    std::uint32_t m_most;
};

std::array<Channel, 3> channelsOf(const Header& header, RecordView info) {
    if (header.compression == kBitFields)
        return {Channel(info.u32(40)), Channel(info.u32(44)), Channel(info.u32(48))};
    if (header.bits == 16)
        return {Channel(0x7C00), Channel(0x03E0), Channel(0x001F)};
    return {Channel(0x00FF0000), Channel(0x0000FF00), Channel(0x000000FF)};
}

void readIndexedRow(const Header& header, const unsigned char* row, const std::vector<QRgb>& colors,
                    QRgb* target) {
    const std::uint32_t perByte = 8 / header.bits;
    const std::uint32_t mask = (1U << header.bits) - 1;
    for (std::uint32_t x = 0; x < static_cast<std::uint32_t>(header.width); ++x) {
        const std::uint32_t shift = 8 - header.bits * (x % perByte + 1);
        const std::size_t index = (static_cast<std::uint32_t>(row[x / perByte]) >> shift) & mask;
        target[x] = index < colors.size() ? colors[index] : qRgb(0, 0, 0);
    }
}

QImage decodeIndexed(const Header& header, const DibSource& dib) {
    const std::vector<QRgb> colors = readColors(header, dib);
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height),
                 QImage::Format_RGB32);
    for (int y = 0; !image.isNull() && y < image.height(); ++y) {
        const int row = header.topDown ? y : image.height() - 1 - y;
        readIndexedRow(header, dib.bits.data() + static_cast<std::size_t>(y) * header.stride(),
                       colors, reinterpret_cast<QRgb*>(image.scanLine(row)));
    }
    return image;
}

QImage decodeTrueColor(const Header& header, const DibSource& dib) {
    const bool alpha = dib.hasAlpha && header.bits == 32;
    const std::array<Channel, 3> channels = channelsOf(header, dib.info);
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height),
                 alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    const std::size_t bytes = header.bits / 8;
    for (int y = 0; !image.isNull() && y < image.height(); ++y) {
        const RecordView row = dib.bits.from(static_cast<std::size_t>(y) * header.stride());
        auto* const target =
            reinterpret_cast<QRgb*>(image.scanLine(header.topDown ? y : image.height() - 1 - y));
        for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x) {
            const unsigned char* const at = row.data() + x * bytes;
            std::uint32_t pixel = at[0] | (static_cast<std::uint32_t>(at[1]) << 8);
            for (std::size_t i = 2; i < bytes; ++i)
                pixel |= static_cast<std::uint32_t>(at[i]) << (8 * i);
            const int level = alpha ? static_cast<int>(pixel >> 24) : 255;
            target[x] = qRgba(std::min(channels[0].level(pixel), level),
                              std::min(channels[1].level(pixel), level),
                              std::min(channels[2].level(pixel), level), level);
        }
    }
    return image;
}

QImage decodeEmbedded(const Header& header, RecordView bits, BitmapBudget& budget) {
    QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bits.data()),
                                              static_cast<qsizetype>(bits.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, header.compression == kJpeg ? "jpeg" : "png");
    const QSize size = reader.size();
    if (size.isEmpty() || hasExcessiveScans(data) ||
        !budget.spend(std::int64_t{size.width()} * size.height()))
        return {};
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage decodeRunLength(const Header& header, const DibSource& dib) {
    const RunLengthPixels pixels =
        decodeRunLengthPixels(dib.bits, static_cast<int>(header.width),
                              static_cast<int>(header.height), header.compression == kRle4);
    const std::vector<QRgb> colors = readColors(header, dib);
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    for (const RunLengthPixels::Run& run : pixels.runs) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(image.height() - 1 - run.row));
        for (std::size_t i = 0; i < run.count; ++i) {
            const std::uint8_t index = pixels.indices[run.first + i];
            row[static_cast<std::size_t>(run.column) + i] =
                index < colors.size() ? colors[index] : qRgb(0, 0, 0);
        }
    }
    return image;
}

bool isKnown(const Header& header) {
    switch (header.compression) {
        case kPlain:
            return header.bits == 1 || header.bits == 4 || header.bits == 8 || header.bits == 16 ||
                   header.bits == 24 || header.bits == 32;
        case kRle8:
            return header.bits == 8 && !header.topDown;
        case kRle4:
            return header.bits == 4 && !header.topDown;
        case kBitFields:
            return header.bits == 16 || header.bits == 32;
        default:
            return false;
    }
}

}  // namespace

DibSource packedDib(RecordView dib, bool indexesPalette, PalettePtr palette) {
    const std::optional<Header> header = readHeader(dib);
    if (!header)
        return {};
    std::size_t colors = header->colors;
    if (header->bits > 8 && !header->isCore())
        colors = std::min<std::size_t>(dib.u32(32), 256);
    const std::size_t offset = header->colorOffset() + colors * header->colorBytes(indexesPalette);
    return {dib, dib.from(offset), indexesPalette, std::move(palette), false};
}

QImage decodeDib(const DibSource& dib, BitmapBudget& budget) {
    const std::optional<Header> header = readHeader(dib.info);
    if (!header)
        return {};
    if (header->compression == kJpeg || header->compression == kPng)
        return decodeEmbedded(*header, dib.bits, budget);
    constexpr std::int64_t widest = 32'000;
    if (!isKnown(*header) || header->width > widest || header->height > widest)
        return {};
    const bool runs = header->compression == kRle8 || header->compression == kRle4;
    // Writers leave out the padding behind the last row.
    const std::size_t rowBytes = (static_cast<std::size_t>(header->width) * header->bits + 7) / 8;
    const std::size_t needed =
        header->stride() * static_cast<std::size_t>(header->height - 1) + rowBytes;
    if ((!runs && dib.bits.size() < needed) || !budget.spend(header->width * header->height))
        return {};
    if (runs)
        return decodeRunLength(*header, dib);
    return header->bits <= 8 ? decodeIndexed(*header, dib) : decodeTrueColor(*header, dib);
}

}  // namespace vellora::metafile
