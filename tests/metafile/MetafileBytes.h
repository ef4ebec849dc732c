#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QRect>
#include <functional>
#include <vector>

#include "writer/Bytes.h"

namespace vellora {

using clipgen::Bytes;

/// An enhanced metafile written record by record. The device has one dot per unit and the frame
/// is the device's own, unless a test says otherwise.
class EmfFile {
public:
    explicit EmfFile(QSize size) : m_size(size), m_frame(QPoint(0, 0), size) {}

    EmfFile& record(std::uint32_t type, const Bytes& parameters = {});
    /// A record whose parameters are all 32-bit numbers.
    EmfFile& put(std::uint32_t type, std::initializer_list<std::int64_t> numbers);
    EmfFile& setFrame(QRect frame) {
        m_frame = frame;
        return *this;
    }

    /// A solid brush without a pen, selected.
    EmfFile& fillWith(QColor color);
    /// A geometric pen without a brush, selected.
    EmfFile& drawWith(QColor color, int width, std::uint32_t style = 0);
    /// Points as 16-bit numbers.
    EmfFile& points16(std::uint32_t type, std::initializer_list<QPoint> points);

    QByteArray bytes() const;

private:
    QSize m_size;
    QRect m_frame;
    Bytes m_records;
    std::uint32_t m_count = 0;
    std::uint32_t m_handle = 0;
};

/// A Windows metafile written record by record.
class WmfFile {
public:
    /// A placeable header with a box gives the frame; without one the records do.
    WmfFile() = default;
    explicit WmfFile(QRect box, int inch = 96) : m_box(box), m_inch(inch) {}

    WmfFile& record(unsigned function, const Bytes& parameters = {});
    WmfFile& put(unsigned function, std::initializer_list<int> words);
    WmfFile& fillWith(QColor color);
    WmfFile& drawWith(QColor color, int width, unsigned style = 0);

    QByteArray bytes() const;

private:
    QRect m_box;
    int m_inch = 96;
    Bytes m_records;
    unsigned m_object = 0;
};

/// The picture drawn into its own frame's size; null when it cannot be loaded.
QImage drawn(const QByteArray& metafile, QSize size, QString* reason = nullptr);

/// Alpha, red, green and blue of one pixel, alpha not multiplied in.
QColor pixelAt(const QImage& image, int x, int y);

/// The sum of the alpha of all pixels as an area in pixels.
double coverage(const QImage& image);

}  // namespace vellora
