#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>

#include <vellora/text/TextEffect.h>

#include "text/TextCanvas.h"

namespace vellora {

/// Adds the layers of an effect to a canvas.
///
/// @param outline  Of the text, to be filled by the winding rule.
/// @param bounds   Over which gradients run and halos are drawn.
void drawEffectLayers(TextCanvas& canvas, const QString& textureFolder, const QPainterPath& outline,
                      const QRectF& bounds, const TextEffectRecord& effect);

}  // namespace vellora
