#include "text/TextBrush.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "text/PathTools.h"
#include "text/TextBrushMaker.h"

namespace vellora {
namespace {

constexpr double kEmbossPen = 2.0;

std::optional<QPointF> direction(std::int32_t angle) {
    switch (angle) {
        case 0:
            return QPointF(1, 0);
        case 45:
            return QPointF(1, 1);
        case 90:
            return QPointF(0, 1);
        case 135:
            return QPointF(-1, 1);
        case 180:
            return QPointF(-1, 0);
        case 225:
            return QPointF(-1, -1);
        case 270:
            return QPointF(0, -1);
        case 315:
            return QPointF(1, -1);
        default:
            return std::nullopt;
    }
}

/// A distance from one end to the other of all that is drawn or seen: no size beyond it shows
/// anything else.
double farthest(const TextCanvas& canvas, const QPainterPath& path) {
    const QRectF all = canvas.visible() | path.controlPointRect();
    return std::hypot(all.width(), all.height());
}

}  // namespace

QPointF shadowOffset(double distance, std::int32_t angle) {
    return direction(angle).value_or(QPointF(1, 1)) * distance;
}

QPointF embossOffset(double distance, std::int32_t angle) {
    return direction(angle).value_or(QPointF(0, 0)) * distance;
}

void CTextBrush::SetSolid(COLORREF colour) {
    m_settings = TextBrushSettings::Solid(colour);
}

void CTextBrush::SetGradient(COLORREF colour1, COLORREF colour2, std::int32_t angle,
                             std::int32_t positionPercent) {
    m_settings = TextBrushSettings();
    m_settings.type = kGradientBrush;
    m_settings.colour1 = colour1;
    m_settings.colour2 = colour2;
    m_settings.angle = angle;
    m_settings.position_percent = positionPercent;
}

void CTextBrush::SetTexture(const QString& fileName) {
    m_settings = TextBrushSettings();
    m_settings.type = kTextureBrush;
    m_settings.SetTextureName(fileName);
}

void CTextBrush::SetBorder(const TextBrushSettings& brush, std::int32_t size) {
    m_border = brush;
    m_borderSize = size;
    m_borderPath.clear();
}

void CTextBrush::Prepare(const QString& textureFolder, const QPainterPath& outline,
                         const QRectF& bounds, std::int32_t distance, std::int32_t angle) {
    const QPointF offset = shadowOffset(distance, angle);
    m_textureFolder = textureFolder;
    m_outline = outline.translated(offset);
    m_haloOutline = m_outline;
    m_bounds = bounds.translated(offset);
}

QBrush CTextBrush::MakeBrush(const TextCanvas& canvas) {
    return MakeTextBrush(m_bounds, m_settings, m_textureFolder, canvas.smallerScale());
}

void CTextBrush::FillFace(TextCanvas& canvas) {
    canvas.fill(m_outline, MakeBrush(canvas));
}

void CTextBrush::DrawGlow(TextCanvas& canvas, std::int32_t size, std::int32_t blur,
                          bool withBorder) {
    if (size <= 0) {
        return;
    }
    const QBrush brush = MakeBrush(canvas);
    if (blur <= 0) {
        canvas.fill(m_outline, brush);
    } else {
        const double reach = std::min<double>(size, farthest(canvas, m_haloOutline));
        canvas.glow(m_haloOutline, m_bounds, reach, blur, brush);
    }
    if (withBorder) {
        DrawBorder(canvas);
    }
}

void CTextBrush::DrawEmboss(TextCanvas& canvas, std::int32_t size, std::int32_t angle,
                            bool withBorder) {
    const QPainterPath pen = widened(m_outline, kEmbossPen, canvas.scale());
    if (size > 0) {
        // Copies of the outline, one unit apart and drawn with a pen of two, leave no gaps.
        const double depth = std::min<double>(size, farthest(canvas, pen));
        const QPainterPath nearest = pen.translated(embossOffset(1.0, angle));
        const QPointF way = embossOffset(depth - 1.0, angle);
        canvas.fill(swept(nearest, way, canvas.scale()), MakeBrush(canvas));
    }
    if (withBorder) {
        m_outline = pen;
        m_borderPath = BorderPath(canvas, true);
        DrawBorder(canvas);
    }
}

/// The line along the outline. Along a widened outline it is, unless it is thin, the line along
/// the outline that was widened, broader by the pen.
QPainterPath CTextBrush::BorderPath(const TextCanvas& canvas, bool isWidened) const {
    const double width = std::min<double>(m_borderSize, 2 * farthest(canvas, m_outline));
    return isWidened && width >= kEmbossPen
               ? widened(m_haloOutline, width + kEmbossPen, canvas.scale())
               : widened(m_outline, width, canvas.scale());
}

void CTextBrush::DrawBorder(TextCanvas& canvas) {
    if (m_borderSize <= 0 || m_border.type == kTextureBrush) {
        return;
    }
    if (m_borderPath.isEmpty()) {
        m_borderPath = BorderPath(canvas, false);
    }
    TextBrushSettings settings = m_border;
    settings.position_percent = 0;
    canvas.fill(m_borderPath, MakeTextBrush(m_bounds, settings, {}));
}

}  // namespace vellora
