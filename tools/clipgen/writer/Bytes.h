#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <cstdint>

namespace vellora::clipgen {

/// Bytes of a file, numbers with the low byte first.
class Bytes {
public:
    Bytes& u8(unsigned value) {
        m_bytes.append(static_cast<char>(value & 0xFF));
        return *this;
    }
    Bytes& u16(unsigned value) { return u8(value).u8(value >> 8); }
    Bytes& u32(std::uint32_t value) { return u16(value & 0xFFFF).u16(value >> 16); }
    Bytes& i16(int value) { return u16(static_cast<unsigned>(value)); }
    Bytes& i32(std::int64_t value) { return u32(static_cast<std::uint32_t>(value)); }
    Bytes& raw(const QByteArray& bytes) {
        m_bytes.append(bytes);
        return *this;
    }
    Bytes& zeros(int count) { return raw(QByteArray(count, '\0')); }
    Bytes& color(const QColor& color) {
        return u8(static_cast<unsigned>(color.red()))
            .u8(static_cast<unsigned>(color.green()))
            .u8(static_cast<unsigned>(color.blue()))
            .u8(0);
    }
    Bytes& padTo(int multiple) {
        while (m_bytes.size() % multiple != 0)
            u8(0);
        return *this;
    }

    const QByteArray& bytes() const { return m_bytes; }
    qsizetype size() const { return m_bytes.size(); }

private:
    QByteArray m_bytes;
};

/// A bottom-up bitmap of 24 bits: header and pixels apart.
struct DibBytes {
    QByteArray header;
    QByteArray pixels;
};

inline DibBytes dibOf(const QImage& image) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    Bytes header;
    Bytes pixels;
    for (int y = rgb.height() - 1; y >= 0; --y) {
        for (int x = 0; x < rgb.width(); ++x) {
            const QRgb pixel = rgb.pixel(x, y);
            pixels.u8(static_cast<unsigned>(qBlue(pixel)))
                .u8(static_cast<unsigned>(qGreen(pixel)))
                .u8(static_cast<unsigned>(qRed(pixel)));
        }
        pixels.padTo(4);
    }
    header.u32(40).i32(rgb.width()).i32(rgb.height()).u16(1).u16(24).u32(0);
    header.u32(static_cast<std::uint32_t>(pixels.size())).zeros(16);
    return {header.bytes(), pixels.bytes()};
}

}  // namespace vellora::clipgen
