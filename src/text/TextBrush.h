#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>

#include <vellora/text/TextBrushSettings.h>

#include "text/TextCanvas.h"

namespace vellora {

/// Where something lies that is moved by a distance in one of the eight directions; for any other
/// angle a shadow moves right and down, an extrusion stays.
QPointF shadowOffset(double distance, std::int32_t angle);
QPointF embossOffset(double distance, std::int32_t angle);

/// Paints the layers of a text, one after the other. Solid white until it is told otherwise.
class CTextBrush {
public:
    void SetSolid(COLORREF colour);
    void SetGradient(COLORREF colour1, COLORREF colour2, std::int32_t angle,
                     std::int32_t positionPercent);
    void SetTexture(const QString& fileName);
    /// The line that the layers with a border get.
    void SetBorder(const TextBrushSettings& brush, std::int32_t size);

    /// Takes the outline and the bounds of a text, moved by a distance.
    void Prepare(const QString& textureFolder, const QPainterPath& outline, const QRectF& bounds,
                 std::int32_t distance, std::int32_t angle);

    void FillFace(TextCanvas& canvas);
    /// Size 0 and less draws nothing, blur 0 and less fills the outline.
    void DrawGlow(TextCanvas& canvas, std::int32_t size, std::int32_t blur, bool withBorder);
    /// With a border the outline becomes that of a widened text, for all that is drawn later.
    void DrawEmboss(TextCanvas& canvas, std::int32_t size, std::int32_t angle, bool withBorder);

private:
    void DrawBorder(TextCanvas& canvas);
    [[nodiscard]] QPainterPath BorderPath(const TextCanvas& canvas, bool isWidened) const;
    QBrush MakeBrush(const TextCanvas& canvas);

    TextBrushSettings m_settings = TextBrushSettings::Solid(0x00FFFFFF);
    TextBrushSettings m_border;
    std::int32_t m_borderSize = 0;
    QString m_textureFolder;
    QRectF m_bounds;
    QPainterPath m_outline;  // of face and border; an extrusion widens it
    QPainterPath m_haloOutline;
    QPainterPath m_borderPath;  // made when the border is first drawn
};

}  // namespace vellora
