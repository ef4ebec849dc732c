#include "metafile/MetafileBytes.h"

#include <QPainter>

#include "metafile/MetafilePicture.h"

namespace vellora {

EmfFile& EmfFile::record(std::uint32_t type, const Bytes& parameters) {
    const auto size = static_cast<std::uint32_t>(8 + (parameters.size() + 3) / 4 * 4);
    m_records.u32(type).u32(size).raw(parameters.bytes()).padTo(4);
    ++m_count;
    return *this;
}

EmfFile& EmfFile::put(std::uint32_t type, std::initializer_list<std::int64_t> numbers) {
    Bytes parameters;
    for (const std::int64_t number : numbers)
        parameters.i32(number);
    return record(type, parameters);
}

EmfFile& EmfFile::fillWith(QColor color) {
    record(39, Bytes().u32(++m_handle).u32(0).color(color).u32(0));
    put(37, {m_handle});
    return put(37, {0x80000008});
}

EmfFile& EmfFile::drawWith(QColor color, int width, std::uint32_t style) {
    Bytes pen;
    pen.u32(++m_handle).zeros(16).u32(0x00010000 | style).i32(width).u32(0).color(color);
    record(95, pen.zeros(8));
    put(37, {m_handle});
    return put(37, {0x80000005});
}

EmfFile& EmfFile::points16(std::uint32_t type, std::initializer_list<QPoint> points) {
    Bytes parameters;
    parameters.zeros(16).u32(static_cast<std::uint32_t>(points.size()));
    for (const QPoint point : points)
        parameters.i16(point.x()).i16(point.y());
    return record(type, parameters);
}

QByteArray EmfFile::bytes() const {
    // One dot is one hundredth of a millimetre times 100: a device of 1,000 dots and millimetres.
    Bytes header;
    header.u32(1).u32(88);
    header.i32(0).i32(0).i32(m_size.width() - 1).i32(m_size.height() - 1);
    header.i32(m_frame.left() * 100).i32(m_frame.top() * 100);
    header.i32((m_frame.left() + m_frame.width()) * 100);
    header.i32((m_frame.top() + m_frame.height()) * 100);
    header.u32(0x464D4520).u32(0x10000);
    header.u32(static_cast<std::uint32_t>(88 + m_records.size() + 20)).u32(m_count + 2);
    header.u16(m_handle + 8).u16(0).zeros(12);
    header.i32(1000).i32(1000).i32(1000).i32(1000);
    header.raw(m_records.bytes());
    return header.u32(14).u32(20).u32(0).u32(16).u32(20).bytes();
}

WmfFile& WmfFile::record(unsigned function, const Bytes& parameters) {
    m_records.u32(static_cast<std::uint32_t>(3 + (parameters.size() + 1) / 2)).u16(function);
    m_records.raw(parameters.bytes()).padTo(2);
    return *this;
}

WmfFile& WmfFile::put(unsigned function, std::initializer_list<int> words) {
    Bytes parameters;
    for (const int word : words)
        parameters.i16(word);
    return record(function, parameters);
}

WmfFile& WmfFile::fillWith(QColor color) {
    record(0x02FC, Bytes().u16(0).color(color).u16(0));
    put(0x012D, {static_cast<int>(m_object++)});
    record(0x02FA, Bytes().u16(5).u16(0).u16(0).u32(0));
    return put(0x012D, {static_cast<int>(m_object++)});
}

WmfFile& WmfFile::drawWith(QColor color, int width, unsigned style) {
    record(0x02FC, Bytes().u16(1).u32(0).u16(0));
    put(0x012D, {static_cast<int>(m_object++)});
    record(0x02FA, Bytes().u16(style).i16(width).i16(0).color(color));
    return put(0x012D, {static_cast<int>(m_object++)});
}

QByteArray WmfFile::bytes() const {
    Bytes file;
    if (!m_box.isNull()) {
        file.u32(0x9AC6CDD7).u16(0).i16(m_box.left()).i16(m_box.top());
        file.i16(m_box.left() + m_box.width()).i16(m_box.top() + m_box.height());
        file.u16(static_cast<unsigned>(m_inch)).u32(0).u16(0);
    }
    file.u16(1).u16(9).u16(0x300).u32(0).u16(m_object + 8).u32(0).u16(0);
    return file.raw(m_records.bytes()).u32(3).u16(0).bytes();
}

QImage drawn(const QByteArray& metafile, QSize size, QString* reason) {
    const auto picture = MetafilePicture::fromBytes(metafile, reason);
    if (picture == nullptr)
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture->draw(painter, QRectF(image.rect()));
    return image;
}

QColor pixelAt(const QImage& image, int x, int y) {
    return image.pixelColor(x, y);
}

double coverage(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    }
    return sum;
}

}  // namespace vellora
