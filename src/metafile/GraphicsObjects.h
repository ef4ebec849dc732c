#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPainterPath>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace vellora::metafile {

/// A colour as records hold it: red in the low byte; the high byte tells whether the low word is
/// an index into the palette instead.
using ColorRef = std::uint32_t;

using Palette = std::vector<QRgb>;
using PalettePtr = std::shared_ptr<const Palette>;

struct PenObject {
    enum class Style : std::uint8_t {
        Solid,
        Dash,
        Dot,
        DashDot,
        DashDotDot,
        Null,
        InsideFrame,
        User,
        Alternate
    };
    Style style = Style::Solid;
    /// Geometric pens take caps, joins and dashes of any width; the others are drawn round.
    bool geometric = false;
    double width = 0;
    ColorRef color = 0;
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    /// Lengths of `Style::User`, dash and gap in turn.
    QList<qreal> userDashes{};
};

struct BrushObject {
    enum class Style : std::uint8_t { Solid, Null, Hatched, Pattern, MonoPattern };
    Style style = Style::Solid;
    ColorRef color = 0x00FFFFFF;
    /// 0 horizontal, 1 vertical, 2 falling, 3 rising, 4 cross, 5 diagonal cross.
    std::uint32_t hatch = 0;
    /// The tile of a pattern. `MonoPattern` tiles are black where the text colour goes and white
    /// where the background colour goes.
    QImage tile{};
};

struct FontObject {
    /// Above 0 the height of the cell, below 0 that of the letters, 0 the default.
    double height = 0;
    double width = 0;
    /// Tenths of a degree, counter-clockwise.
    double escapement = 0;
    int weight = 400;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    std::uint8_t charSet = 0;
    std::uint8_t pitchAndFamily = 0;
    QString face{};

    bool operator==(const FontObject&) const = default;
};

struct RegionObject {
    QPainterPath path;
};

using GraphicsObject =
    std::variant<std::monostate, PenObject, BrushObject, FontObject, PalettePtr, RegionObject>;

/// The objects of one file. WMF files take the lowest free slot, EMF files name theirs.
class ObjectTable {
public:
    explicit ObjectTable(std::size_t places) : m_objects(places) {}

    void setAtLowestFree(GraphicsObject object);
    void set(std::size_t index, GraphicsObject object);
    void remove(std::size_t index);
    /// Null for an index outside the table and for a free slot.
    const GraphicsObject* find(std::size_t index) const;
    GraphicsObject* find(std::size_t index);

private:
    std::vector<GraphicsObject> m_objects;
    std::size_t m_lowestFree = 0;
};

/// The objects every file may select without making them; an empty variant for an unknown number.
GraphicsObject stockObject(std::uint32_t number);

/// The lines of a pen record's style word (style, caps and joins).
PenObject penFromStyle(std::uint32_t style, double width, ColorRef color);

/// A brush of one colour, a hatched one or an empty one, as a brush record's style word says.
BrushObject brushFromStyle(std::uint32_t style, ColorRef color, std::uint32_t hatch);

}  // namespace vellora::metafile
