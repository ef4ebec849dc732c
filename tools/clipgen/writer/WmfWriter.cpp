#include <QPolygonF>
#include <QStringEncoder>
#include <QTransform>

#include "writer/Bytes.h"
#include "writer/Units.h"
#include "writer/Writers.h"

namespace vellora::clipgen {
namespace {

/// Units per inch that make a drawing five inches long.
constexpr int kUnitsPerInch = 4'000;
constexpr std::uint32_t kSourceCopy = 0x00CC0020;

enum Function : unsigned {
    kEof = 0x0000,
    kSetBackMode = 0x0102,
    kSetMapMode = 0x0103,
    kSetPolyFillMode = 0x0106,
    kSelectObject = 0x012D,
    kSetTextAlign = 0x012E,
    kDeleteObject = 0x01F0,
    kSetTextColor = 0x0209,
    kSetWindowOrg = 0x020B,
    kSetWindowExt = 0x020C,
    kCreatePen = 0x02FA,
    kCreateFont = 0x02FB,
    kCreateBrush = 0x02FC,
    kPolyline = 0x0325,
    kTextOut = 0x0521,
    kPolyPolygon = 0x0538,
    kStretchDib = 0x0F43
};

class Writer {
public:
    explicit Writer(const Drawing& drawing) : m_drawing(drawing), m_units(drawing) {}

    QByteArray write() {
        const int width = m_units.length(m_drawing.size().width());
        const int height = m_units.length(m_drawing.size().height());
        record(kSetMapMode, Bytes().u16(8));
        record(kSetWindowOrg, Bytes().i16(0).i16(0));
        record(kSetWindowExt, Bytes().i16(height).i16(width));
        record(kSetBackMode, Bytes().u16(1));
        for (const Drawing::Item& item : m_drawing.items())
            std::visit([this](const auto& part) { add(part); }, item);
        record(kEof, {});
        return placeableHeader(width, height) + header() + m_records.bytes();
    }

private:
    void record(unsigned function, const Bytes& parameters) {
        const auto words = static_cast<std::uint32_t>(3 + (parameters.size() + 1) / 2);
        m_records.u32(words).u16(function).raw(parameters.bytes()).padTo(2);
        m_longest = std::max(m_longest, words);
    }

    /// Slots are reused as soon as they are free: 0 holds the pen, 1 the brush.
    void choosePen(const std::optional<Line>& line) {
        if (m_penChosen && m_line == line)
            return;
        if (m_penChosen)
            replaceFrom(0);
        const unsigned style = !line                                ? 5
                               : line->dashes == Line::Dashes::Dash ? 1
                               : line->dashes == Line::Dashes::Dot  ? 2
                                                                    : 0;
        const int width = line ? m_units.lineWidth(line->width) : 0;
        record(kCreatePen,
               Bytes().u16(style).i16(width).i16(0).color(line ? line->color : QColor()));
        record(kSelectObject, Bytes().u16(0));
        m_penChosen = true;
        m_line = line;
    }

    void chooseBrush(const std::optional<QColor>& fill) {
        if (m_brushChosen && m_fill == fill)
            return;
        if (m_brushChosen)
            replaceFrom(1);
        record(kCreateBrush, Bytes().u16(fill ? 0 : 1).color(fill.value_or(QColor())).u16(0));
        record(kSelectObject, Bytes().u16(1));
        m_brushChosen = true;
        m_fill = fill;
    }

    void replaceFrom(unsigned slot) { record(kDeleteObject, Bytes().u16(slot)); }

    void add(const Shape& shape) {
        const QList<QPolygonF> rings =
            shape.path.toSubpathPolygons(QTransform::fromScale(m_units.scale(), m_units.scale()));
        choosePen(shape.line);
        if (!shape.fill) {
            for (const QPolygonF& ring : rings)
                addPolyline(ring);
            return;
        }
        chooseBrush(shape.fill);
        if (m_fillRule != shape.path.fillRule()) {
            m_fillRule = shape.path.fillRule();
            record(kSetPolyFillMode, Bytes().u16(m_fillRule == Qt::WindingFill ? 2 : 1));
        }
        Bytes counts;
        Bytes points;
        unsigned count = 0;
        for (const QPolygonF& ring : rings) {
            const QPolygon rounded = ring.toPolygon();
            if (rounded.size() < 3)
                continue;
            ++count;
            counts.u16(static_cast<unsigned>(rounded.size()));
            addPoints(points, rounded);
        }
        if (count > 0)
            record(kPolyPolygon, Bytes().u16(count).raw(counts.bytes()).raw(points.bytes()));
    }

    void addPolyline(const QPolygonF& ring) {
        const QPolygon rounded = ring.toPolygon();
        Bytes points;
        points.u16(static_cast<unsigned>(rounded.size()));
        addPoints(points, rounded);
        record(kPolyline, points);
    }

    static void addPoints(Bytes& bytes, const QPolygon& points) {
        for (const QPoint point : points)
            bytes.i16(point.x()).i16(point.y());
    }

    void add(const Text& text) {
        choosePen({});
        chooseBrush(QColor(Qt::black));
        const int angle = static_cast<int>(std::lround(text.angle * 10));
        QByteArray face = text.face.toLatin1().left(31);
        Bytes font;
        font.i16(-m_units.length(text.size)).i16(0).i16(angle).i16(angle);
        font.i16(text.bold ? 700 : 400).u8(text.italic ? 1 : 0).zeros(7);
        record(kCreateFont, font.raw(face.append('\0')));
        record(kSelectObject, Bytes().u16(2));
        record(kSetTextColor, Bytes().color(text.color));
        record(kSetTextAlign, Bytes().u16(text.centred ? 24 | 6 : 24));
        const QByteArray letters = QStringEncoder("windows-1252").encode(text.text);
        Bytes run;
        run.u16(static_cast<unsigned>(letters.size())).raw(letters).padTo(2);
        run.i16(m_units.length(text.at.y())).i16(m_units.length(text.at.x()));
        record(kTextOut, run);
        record(kDeleteObject, Bytes().u16(2));
    }

    void add(const Picture& picture) {
        const DibBytes dib = dibOf(picture.image);
        Bytes blit;
        blit.u32(kSourceCopy).u16(0);
        blit.i16(picture.image.height()).i16(picture.image.width()).i16(0).i16(0);
        blit.i16(m_units.length(picture.place.height())).i16(m_units.length(picture.place.width()));
        blit.i16(m_units.length(picture.place.y())).i16(m_units.length(picture.place.x()));
        record(kStretchDib, blit.raw(dib.header).raw(dib.pixels));
    }

    QByteArray placeableHeader(int width, int height) const {
        Bytes placeable;
        placeable.u32(0x9AC6CDD7).u16(0).i16(0).i16(0).i16(width).i16(height);
        placeable.u16(kUnitsPerInch).u32(0);
        unsigned checksum = 0;
        for (qsizetype i = 0; i < placeable.size(); i += 2)
            checksum ^= static_cast<unsigned char>(placeable.bytes()[i]) |
                        (static_cast<unsigned char>(placeable.bytes()[i + 1]) << 8);
        return placeable.u16(checksum).bytes();
    }

    QByteArray header() const {
        constexpr unsigned objects = 3;
        const auto words = static_cast<std::uint32_t>(9 + m_records.size() / 2);
        return Bytes()
            .u16(1)
            .u16(9)
            .u16(0x0300)
            .u32(words)
            .u16(objects)
            .u32(m_longest)
            .u16(0)
            .bytes();
    }

    const Drawing& m_drawing;
    Units m_units;
    Bytes m_records;
    std::uint32_t m_longest = 0;
    bool m_penChosen = false;
    bool m_brushChosen = false;
    std::optional<Line> m_line;
    std::optional<QColor> m_fill;
    Qt::FillRule m_fillRule = Qt::OddEvenFill;
};

}  // namespace

QByteArray writeWmf(const Drawing& drawing) {
    return Writer(drawing).write();
}

}  // namespace vellora::clipgen
