#include "metafile/Canvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "metafile/Limits.h"

namespace vellora::metafile {
namespace {

constexpr double kHatchSpacing = 8;
constexpr double kThinnestLine = 0.5;

QTransform linearPart(const QTransform& transform) {
    return {transform.m11(), transform.m12(), transform.m21(), transform.m22(), 0, 0};
}

/// Whether circles stay circles.
bool keepsShapes(const QTransform& t) {
    const double across = t.m11() * t.m11() + t.m12() * t.m12();
    const double down = t.m21() * t.m21() + t.m22() * t.m22();
    const double skew = t.m11() * t.m21() + t.m12() * t.m22();
    const double tolerance = 1.0e-3 * std::max(across, down);
    return std::abs(across - down) <= tolerance && std::abs(skew) <= tolerance;
}

double lengthOf(const QPainterPath& path) {
    double length = 0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPainterPath::Element to = path.elementAt(i);
        if (!to.isMoveTo()) {
            const QPointF step = QPointF(to) - QPointF(path.elementAt(i - 1));
            length += std::hypot(step.x(), step.y());
        }
    }
    return length;
}

/// Lines that cover a box, at one of the four directions a hatch is made of.
void addHatchLines(QPainterPath& lines, const QRectF& box, double spacing, QPointF origin,
                   QPointF along) {
    const QPointF across(-along.y(), along.x());
    const QPointF centre = box.center() - origin;
    const double reach = std::hypot(box.width(), box.height()) / 2;
    const double middle = QPointF::dotProduct(centre, across);
    const double position = QPointF::dotProduct(centre, along);
    for (double k = std::ceil((middle - reach) / spacing); k * spacing <= middle + reach; ++k) {
        const QPointF foot = origin + across * (k * spacing) + along * position;
        lines.moveTo(foot - along * reach);
        lines.lineTo(foot + along * reach);
    }
}

QImage recoloured(const QImage& mono, QColor dark, QColor light) {
    QImage tile = mono.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < tile.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(tile.scanLine(y));
        std::transform(row, row + tile.width(), row,
                       [&](QRgb pixel) { return qGray(pixel) < 128 ? dark.rgb() : light.rgb(); });
    }
    return tile;
}

}  // namespace

Canvas::Canvas(DisplayList& list, WorkBudget& budget, double pixel)
    : m_list(list), m_budget(budget), m_pixel(pixel), m_glyphs(budget) {}

void Canvas::save() {
    if (m_saves.size() < kMaxSaves)
        m_saves.push_back(m_state);
}

void Canvas::restore(std::int32_t which) {
    const auto count = static_cast<std::int64_t>(m_saves.size());
    const std::int64_t index = which < 0 ? count + which : std::int64_t{which} - 1;
    if (which == 0 || index < 0 || index >= count)
        return;
    m_state = m_saves[static_cast<std::size_t>(index)];
    m_saves.resize(static_cast<std::size_t>(index));
}

void Canvas::select(const GraphicsObject& object) {
    if (const auto* pen = std::get_if<PenObject>(&object))
        m_state.pen = *pen;
    else if (const auto* brush = std::get_if<BrushObject>(&object))
        m_state.brush = *brush;
    else if (const auto* font = std::get_if<FontObject>(&object))
        m_state.font = *font;
    else if (const auto* palette = std::get_if<PalettePtr>(&object))
        m_state.palette = *palette;
    else if (const auto* region = std::get_if<RegionObject>(&object))
        clipTo(mapped(region->path), ClipMode::Copy);
}

void Canvas::setWorld(const QTransform& world) {
    const auto usable = [](double value) { return std::abs(value) <= kMaxCoordinate; };
    if (usable(world.m11()) && usable(world.m12()) && usable(world.m21()) && usable(world.m22()) &&
        usable(world.dx()) && usable(world.dy()))
        m_state.world = world;
}

QPointF Canvas::bounded(QPointF point) {
    const auto held = [](double value) {
        return std::isnan(value) ? 0 : std::clamp(value, -kMaxCoordinate, kMaxCoordinate);
    };
    return {held(point.x()), held(point.y())};
}

QPainterPath Canvas::mapped(const QPainterPath& path) const {
    const QTransform transform = toDevice();
    const auto point = [&](int i) { return bounded(transform.map(QPointF(path.elementAt(i)))); };
    QPainterPath result;
    result.setFillRule(path.fillRule());
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            result.moveTo(point(i));
        } else if (element.isLineTo()) {
            result.lineTo(point(i));
        } else if (i + 2 < path.elementCount()) {
            result.cubicTo(point(i), point(i + 1), point(i + 2));
            i += 2;
        }
    }
    return result;
}

QColor Canvas::colorOf(ColorRef color) const {
    if ((color >> 24) == 1) {
        const std::size_t index = color & 0xFFFF;
        return m_state.palette != nullptr && index < m_state.palette->size()
                   ? QColor(m_state.palette->at(index))
                   : QColor(Qt::black);
    }
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

std::optional<QColor> Canvas::inked(ColorRef color) const {
    switch (m_state.rop2) {
        case 1:
            return QColor(Qt::black);
        case 11:
            return {};
        case 16:
            return QColor(Qt::white);
        default:
            return colorOf(color);
    }
}

ClipPartsPtr Canvas::activeClip() {
    const ClipPartsPtr& lasting = m_state.lastingClip.parts();
    const ClipPartsPtr& own = m_state.clip.parts();
    if (lasting == nullptr || own == nullptr)
        return lasting == nullptr ? own : lasting;
    if (m_lastingParts != lasting || m_ownParts != own) {
        m_lastingParts = lasting;
        m_ownParts = own;
        ClipChain joined = m_state.lastingClip;
        joined.append(m_state.clip);
        m_joinedParts = joined.parts();
    }
    return m_joinedParts;
}

void Canvas::shape(const QPainterPath& device, bool fills, bool strokes) {
    if (m_openPath) {
        if (m_budget.spend(device.elementCount()))
            m_openPath->addPath(device);
        m_figureOpen = false;
        return;
    }
    if (fills) {
        QPainterPath area = device;
        area.setFillRule(m_state.fillRule);
        fill(area, m_state.brush);
    }
    if (strokes)
        stroke(device);
}

std::optional<QBrush> Canvas::solidOrPattern(const BrushObject& brush) const {
    if (brush.style == BrushObject::Style::Null)
        return {};
    const std::optional<QColor> color = inked(brush.color);
    if (!color)
        return {};
    if (brush.tile.isNull() || m_state.rop2 == 1 || m_state.rop2 == 16)
        return QBrush(*color);
    QBrush tiles(
        brush.style == BrushObject::Style::MonoPattern
            ? recoloured(brush.tile, colorOf(m_state.textColor), colorOf(m_state.backColor))
            : brush.tile);
    const QPointF origin = bounded(m_state.brushOrigin * m_pixel);
    tiles.setTransform(QTransform(m_pixel, 0, 0, m_pixel, origin.x(), origin.y()));
    return tiles;
}

void Canvas::fill(const QPainterPath& device, const BrushObject& brush) {
    if (brush.style == BrushObject::Style::Hatched)
        hatch(device, brush);
    else if (const std::optional<QBrush> ink = solidOrPattern(brush))
        m_list.fill(device, *ink, activeClip());
}

void Canvas::hatch(const QPainterPath& device, const BrushObject& brush) {
    const std::optional<QColor> ink = inked(brush.color);
    const QRectF box = device.controlPointRect();
    if (!ink || box.isEmpty())
        return;
    if (m_state.opaqueBack)
        m_list.fill(device, colorOf(m_state.backColor), activeClip());
    const double spacing = kHatchSpacing * m_pixel;
    if (box.width() + box.height() > kMaxHatchLines * spacing) {
        m_list.fill(device, *ink, activeClip());
        return;
    }
    const double slant = std::sqrt(0.5);
    const QPointF origin = bounded(m_state.brushOrigin * m_pixel);
    QPainterPath lines;
    if (brush.hatch == 0 || brush.hatch == 4)
        addHatchLines(lines, box, spacing, origin, {1, 0});
    if (brush.hatch == 1 || brush.hatch == 4)
        addHatchLines(lines, box, spacing, origin, {0, 1});
    if (brush.hatch == 2 || brush.hatch == 5)
        addHatchLines(lines, box, spacing * slant, origin, {slant, slant});
    if (brush.hatch == 3 || brush.hatch == 5)
        addHatchLines(lines, box, spacing * slant, origin, {slant, -slant});
    ClipChain inside;
    inside.combine({device, asRectangle(device)}, ClipMode::And);
    if (const ClipPartsPtr outer = activeClip()) {
        for (const ClipPart& part : *outer)
            inside.combine(part, ClipMode::And);
    }
    m_list.stroke(lines, QPen(*ink, m_pixel, Qt::SolidLine, Qt::FlatCap), inside.parts());
}

QList<qreal> Canvas::dashesFor(double width) const {
    const PenObject& pen = m_state.pen;
    if (pen.style == PenObject::Style::User) {
        // Geometric lengths are logical, as the width is; others are pixels.
        QList<qreal> dashes = pen.userDashes;
        const double unit = pen.geometric && pen.width > 0 ? pen.width : 1;
        for (qreal& length : dashes)
            length = std::clamp(length / unit, 0.01, kMaxCoordinate);
        return dashes;
    }
    // Thin lines have dashes of so many pixels, others of so many widths.
    const double unit = width <= m_pixel * 1.01 ? 3 * m_pixel / width : 1;
    switch (pen.style) {
        case PenObject::Style::Dash:
            return unit == 1 ? QList<qreal>{3, 1} : QList<qreal>{6 * unit, 2 * unit};
        case PenObject::Style::Dot:
        case PenObject::Style::Alternate:
            return {unit, unit};
        case PenObject::Style::DashDot:
            return {3 * unit, unit, unit, unit};
        case PenObject::Style::DashDotDot:
            return {3 * unit, unit, unit, unit, unit, unit};
        default:
            return {};
    }
}

QPen Canvas::penFor(double width) const {
    const PenObject& object = m_state.pen;
    QPen pen(QBrush(*inked(object.color)), width, Qt::SolidLine, object.cap, object.join);
    pen.setMiterLimit(std::clamp(m_state.miterLimit, 1.0, kMaxMiter));
    if (const QList<qreal> dashes = dashesFor(width); !dashes.isEmpty()) {
        pen.setDashPattern(dashes);
        if (!object.geometric)
            pen.setCapStyle(Qt::FlatCap);
    }
    return pen;
}

void Canvas::stroke(const QPainterPath& device) {
    if (m_state.pen.style == PenObject::Style::Null || !inked(m_state.pen.color) ||
        device.isEmpty())
        return;
    const QTransform linear = linearPart(toDevice());
    const double scale = std::sqrt(std::abs(linear.determinant()));
    const double thinnest = m_pixel * kThinnestLine;
    double width = std::min(m_state.pen.width * scale, kMaxCoordinate);
    const bool hairline = !(width > thinnest);
    if (hairline)
        width = m_state.pen.width == 0 ? m_pixel : thinnest;
    const bool sameSpace = hairline || keepsShapes(linear);
    if (!sameSpace)
        width = m_state.pen.width;

    QPen pen = penFor(width);
    const QPainterPath line = sameSpace ? device : linear.inverted().map(device);
    if (!pen.dashPattern().isEmpty() && pen.style() == Qt::CustomDashLine) {
        double period = 0;
        for (const qreal length : pen.dashPattern())
            period += length * width;
        const double dashes =
            lengthOf(line) / period * static_cast<double>(pen.dashPattern().size());
        if (!(dashes <= kMaxDashes) || !m_budget.spend(8 * dashes))
            pen.setStyle(Qt::SolidLine);
    }
    m_list.stroke(line, pen, activeClip(), sameSpace ? QTransform() : linear);
}

void Canvas::clipTo(const QRectF& box, ClipMode mode) {
    const QPainterPath device = mapped(rectanglePath(box.normalized()));
    m_state.clip.combine({device, asRectangle(device)}, mode);
}

void Canvas::clipTo(const QPainterPath& region, ClipMode mode) {
    if (m_budget.spend(region.elementCount()))
        m_state.clip.combine({region, asRectangle(region)}, mode);
}

void Canvas::offsetClip(QPointF by) {
    m_state.clip.translate(bounded(linearPart(toDevice()).map(by)));
}

void Canvas::keepClip() {
    m_state.lastingClip.append(m_state.clip);
    m_state.clip.reset();
}

}  // namespace vellora::metafile
