#include "metafile/GraphicsObjects.h"

#include <cmath>
#include <utility>

namespace vellora::metafile {
namespace {

constexpr std::uint32_t kStyleMask = 0x0F;
constexpr std::uint32_t kCapMask = 0x0F00;
constexpr std::uint32_t kJoinMask = 0xF000;
constexpr std::uint32_t kGeometric = 0x00010000;

BrushObject grey(ColorRef level) {
    return {.color = level | (level << 8) | (level << 16)};
}

}  // namespace

void ObjectTable::setAtLowestFree(GraphicsObject object) {
    while (m_lowestFree < m_objects.size() &&
           !std::holds_alternative<std::monostate>(m_objects[m_lowestFree]))
        ++m_lowestFree;
    if (m_lowestFree < m_objects.size())
        m_objects[m_lowestFree] = std::move(object);
}

void ObjectTable::set(std::size_t index, GraphicsObject object) {
    if (index < m_objects.size())
        m_objects[index] = std::move(object);
}

void ObjectTable::remove(std::size_t index) {
    if (index >= m_objects.size())
        return;
    m_objects[index] = std::monostate();
    if (index < m_lowestFree)
        m_lowestFree = index;
}

const GraphicsObject* ObjectTable::find(std::size_t index) const {
    if (index >= m_objects.size() || std::holds_alternative<std::monostate>(m_objects[index]))
        return nullptr;
    return &m_objects[index];
}

GraphicsObject* ObjectTable::find(std::size_t index) {
    return const_cast<GraphicsObject*>(std::as_const(*this).find(index));
}

GraphicsObject stockObject(std::uint32_t number) {
    switch (number) {
        case 0:
            return grey(0xFF);
        case 1:
            return grey(0xC0);
        case 2:
            return grey(0x80);
        case 3:
            return grey(0x40);
        case 4:
            return grey(0x00);
        case 5:
            return BrushObject{.style = BrushObject::Style::Null};
        case 6:
            return PenObject{.color = 0x00FFFFFF};
        case 7:
            return PenObject{};
        case 8:
            return PenObject{.style = PenObject::Style::Null};
        case 10:
        case 11:
        case 16:
            return FontObject{.face = QStringLiteral("Courier New")};
        case 12:
        case 13:
        case 14:
        case 17:
            return FontObject{.face = QStringLiteral("Arial")};
        case 15:
            return std::make_shared<const Palette>();
        case 18:
            return grey(0xFF);
        case 19:
            return PenObject{};
        default:
            return {};
    }
}

PenObject penFromStyle(std::uint32_t style, double width, ColorRef color) {
    PenObject pen{.width = std::abs(width), .color = color};
    const std::uint32_t line = style & kStyleMask;
    if (line <= static_cast<std::uint32_t>(PenObject::Style::Alternate))
        pen.style = static_cast<PenObject::Style>(line);
    pen.geometric = (style & kGeometric) != 0;
    switch (style & kCapMask) {
        case 0x0100:
            pen.cap = Qt::SquareCap;
            break;
        case 0x0200:
            pen.cap = Qt::FlatCap;
            break;
        default:
            break;
    }
    switch (style & kJoinMask) {
        case 0x1000:
            pen.join = Qt::BevelJoin;
            break;
        case 0x2000:
            pen.join = Qt::SvgMiterJoin;
            break;
        default:
            break;
    }
    return pen;
}

BrushObject brushFromStyle(std::uint32_t style, ColorRef color, std::uint32_t hatch) {
    BrushObject brush{.color = color, .hatch = hatch};
    if (style == 1)
        brush.style = BrushObject::Style::Null;
    else if (style == 2)
        brush.style = BrushObject::Style::Hatched;
    return brush;
}

}  // namespace vellora::metafile
