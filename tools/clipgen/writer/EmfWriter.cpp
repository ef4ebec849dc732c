#include <QTransform>

#include "writer/Bytes.h"
#include "writer/Units.h"
#include "writer/Writers.h"

namespace vellora::clipgen {
namespace {

/// The reference device: 4,000 dots to 250 mm, the drawing 127 mm long.
constexpr int kDeviceDots = 4'000;
constexpr int kDeviceMillimetres = 250;
constexpr double kLongestMillimetres = 127;
constexpr std::uint32_t kSourceCopy = 0x00CC0020;
constexpr std::uint32_t kNullBrush = 0x80000005;
constexpr std::uint32_t kNullPen = 0x80000008;
constexpr std::uint32_t kPenHandle = 1;
constexpr std::uint32_t kBrushHandle = 2;
constexpr std::uint32_t kFontHandle = 3;

enum Type : std::uint32_t {
    kHeader = 1,
    kSetWindowExt = 9,
    kSetWindowOrg = 10,
    kSetViewportExt = 11,
    kSetViewportOrg = 12,
    kEof = 14,
    kSetMapMode = 17,
    kSetBackMode = 18,
    kSetPolyFillMode = 19,
    kSetTextAlign = 22,
    kSetTextColor = 24,
    kMoveTo = 27,
    kSelectObject = 37,
    kCreateBrush = 39,
    kDeleteObject = 40,
    kBeginPath = 59,
    kEndPath = 60,
    kCloseFigure = 61,
    kFillPath = 62,
    kStrokeAndFillPath = 63,
    kStrokePath = 64,
    kStretchDibits = 81,
    kCreateFont = 82,
    kTextOut = 84,
    kPolyBezierTo16 = 88,
    kPolylineTo16 = 89,
    kExtCreatePen = 95
};

class Writer {
public:
    explicit Writer(const Drawing& drawing) : m_drawing(drawing), m_units(drawing) {}

    QByteArray write() {
        const QSizeF size = m_drawing.size();
        const double toMm = kLongestMillimetres / std::max(size.width(), size.height());
        m_frame = QSizeF(size.width() * toMm, size.height() * toMm);
        const double dots = static_cast<double>(kDeviceDots) / kDeviceMillimetres;
        const auto extent = [](QSizeF value) {
            return Bytes().i32(std::lround(value.width())).i32(std::lround(value.height()));
        };
        record(kSetMapMode, Bytes().u32(8));
        record(kSetWindowOrg, Bytes().i32(0).i32(0));
        record(kSetWindowExt, extent(size * m_units.scale()));
        record(kSetViewportOrg, Bytes().i32(0).i32(0));
        record(kSetViewportExt, extent(m_frame * dots));
        record(kSetBackMode, Bytes().u32(1));
        for (const Drawing::Item& item : m_drawing.items())
            std::visit([this](const auto& part) { add(part); }, item);
        record(kEof, Bytes().u32(0).u32(16).u32(20));
        return header().bytes() + m_records.bytes();
    }

private:
    void record(std::uint32_t type, const Bytes& parameters) {
        const auto size = static_cast<std::uint32_t>(8 + (parameters.size() + 3) / 4 * 4);
        m_records.u32(type).u32(size).raw(parameters.bytes()).padTo(4);
        ++m_count;
    }

    Bytes header() const {
        const std::uint32_t headerBytes = 88;
        const double dots = static_cast<double>(kDeviceDots) / kDeviceMillimetres;
        Bytes bytes;
        bytes.u32(kHeader).u32(headerBytes);
        bytes.i32(0).i32(0).i32(std::lround(m_frame.width() * dots) - 1);
        bytes.i32(std::lround(m_frame.height() * dots) - 1);
        bytes.i32(0).i32(0).i32(std::lround(m_frame.width() * 100));
        bytes.i32(std::lround(m_frame.height() * 100));
        bytes.u32(0x464D4520).u32(0x00010000);
        bytes.u32(headerBytes + static_cast<std::uint32_t>(m_records.size())).u32(m_count + 1);
        bytes.u16(4).u16(0).u32(0).u32(0).u32(0);
        bytes.i32(kDeviceDots).i32(kDeviceDots);
        bytes.i32(kDeviceMillimetres).i32(kDeviceMillimetres);
        return bytes;
    }

    void select(std::uint32_t handle) { record(kSelectObject, Bytes().u32(handle)); }

    void choosePen(const std::optional<Line>& line) {
        if (m_penKnown && m_line == line)
            return;
        if (m_penKnown && m_line)
            record(kDeleteObject, Bytes().u32(kPenHandle));
        m_penKnown = true;
        m_line = line;
        if (!line) {
            select(kNullPen);
            return;
        }
        constexpr std::uint32_t geometric = 0x00010000;
        constexpr std::uint32_t flatCap = 0x0200;
        const std::uint32_t style = line->dashes == Line::Dashes::Dash  ? 1 | flatCap
                                    : line->dashes == Line::Dashes::Dot ? 2 | flatCap
                                                                        : 0;
        Bytes pen;
        pen.u32(kPenHandle).zeros(16).u32(geometric | style);
        pen.i32(m_units.lineWidth(line->width)).u32(0).color(line->color).u32(0).u32(0);
        record(kExtCreatePen, pen);
        select(kPenHandle);
    }

    void chooseBrush(const std::optional<QColor>& fill) {
        if (m_brushKnown && m_fill == fill)
            return;
        if (m_brushKnown && m_fill)
            record(kDeleteObject, Bytes().u32(kBrushHandle));
        m_brushKnown = true;
        m_fill = fill;
        if (!fill) {
            select(kNullBrush);
            return;
        }
        record(kCreateBrush, Bytes().u32(kBrushHandle).u32(0).color(*fill).u32(0));
        select(kBrushHandle);
    }

    void add(const Shape& shape) {
        choosePen(shape.line);
        if (shape.fill)
            chooseBrush(shape.fill);
        if (shape.fill && m_fillRule != shape.path.fillRule()) {
            m_fillRule = shape.path.fillRule();
            record(kSetPolyFillMode, Bytes().u32(m_fillRule == Qt::WindingFill ? 2 : 1));
        }
        record(kBeginPath, {});
        addPath(shape.path, shape.fill.has_value());
        record(kEndPath, {});
        record(!shape.fill  ? kStrokePath
               : shape.line ? kStrokeAndFillPath
                            : kFillPath,
               Bytes().zeros(16));
    }

    QPoint rounded(QPointF point) const {
        return {m_units.length(point.x()), m_units.length(point.y())};
    }

    /// Runs of lines and of curves become one record each.
    void addPath(const QPainterPath& path, bool filled) {
        int i = 0;
        QPointF start;
        QPointF last;
        const auto close = [&] {
            if (i > 0 && (filled || start == last))
                record(kCloseFigure, {});
        };
        while (i < path.elementCount()) {
            const QPainterPath::Element element = path.elementAt(i);
            if (element.isMoveTo()) {
                close();
                start = last = element;
                const QPoint at = rounded(element);
                record(kMoveTo, Bytes().i32(at.x()).i32(at.y()));
                ++i;
                continue;
            }
            const bool line = element.isLineTo();
            Bytes points;
            std::uint32_t count = 0;
            for (; i < path.elementCount() && !path.elementAt(i).isMoveTo() &&
                   path.elementAt(i).isLineTo() == line;
                 ++i, ++count) {
                last = path.elementAt(i);
                const QPoint at = rounded(last);
                points.i16(at.x()).i16(at.y());
            }
            record(line ? kPolylineTo16 : kPolyBezierTo16,
                   Bytes().zeros(16).u32(count).raw(points.bytes()));
        }
        close();
    }

    void add(const Text& text) {
        const int angle = static_cast<int>(std::lround(text.angle * 10));
        Bytes font;
        font.u32(kFontHandle).i32(-m_units.length(text.size)).i32(0).i32(angle).i32(angle);
        font.i32(text.bold ? 700 : 400).u8(text.italic ? 1 : 0).zeros(7);
        for (qsizetype i = 0; i < 32; ++i)
            font.u16(i < text.face.size() && i < 31 ? text.face[i].unicode() : 0);
        record(kCreateFont, font);
        select(kFontHandle);
        record(kSetTextColor, Bytes().color(text.color));
        record(kSetTextAlign, Bytes().u32(text.centred ? 24 | 6 : 24));
        const QPoint at = rounded(text.at);
        Bytes run;
        run.zeros(16).u32(1).u32(0x3F800000).u32(0x3F800000);
        run.i32(at.x()).i32(at.y()).u32(static_cast<std::uint32_t>(text.text.size()));
        run.u32(76).u32(0).zeros(16).u32(0);
        for (const QChar c : text.text)
            run.u16(c.unicode());
        record(kTextOut, run);
        record(kDeleteObject, Bytes().u32(kFontHandle));
    }

    void add(const Picture& picture) {
        const DibBytes dib = dibOf(picture.image);
        constexpr std::uint32_t fixedBytes = 80;
        const auto headerBytes = static_cast<std::uint32_t>(dib.header.size());
        const QPoint at = rounded(picture.place.topLeft());
        Bytes blit;
        blit.zeros(16).i32(at.x()).i32(at.y()).i32(0).i32(0);
        blit.i32(picture.image.width()).i32(picture.image.height());
        blit.u32(fixedBytes).u32(headerBytes).u32(fixedBytes + headerBytes);
        blit.u32(static_cast<std::uint32_t>(dib.pixels.size())).u32(0).u32(kSourceCopy);
        blit.i32(m_units.length(picture.place.width()));
        blit.i32(m_units.length(picture.place.height()));
        record(kStretchDibits, blit.raw(dib.header).raw(dib.pixels));
    }

    const Drawing& m_drawing;
    Units m_units;
    QSizeF m_frame;
    Bytes m_records;
    std::uint32_t m_count = 0;
    bool m_penKnown = false;
    bool m_brushKnown = false;
    std::optional<Line> m_line;
    std::optional<QColor> m_fill;
    Qt::FillRule m_fillRule = Qt::OddEvenFill;
};

}  // namespace

QByteArray writeEmf(const Drawing& drawing) {
    return Writer(drawing).write();
}

}  // namespace vellora::clipgen
