#pragma once

#include <QBrush>
#include <QRectF>
#include <QString>

#include <vellora/text/TextBrushSettings.h>

namespace vellora {

/// Makes the brush of the settings; `Qt::NoBrush` when there is nothing to paint with.
///
/// A gradient runs over `rect` and repeats beyond it. Making one reduces the stored position
/// percent modulo 90. A texture repeats from the origin of the drawing; `detail` says how many
/// device pixels one unit of it takes.
QBrush MakeTextBrush(const QRectF& rect, TextBrushSettings& settings, const QString& textureFolder,
                     double detail = 1.0);

}  // namespace vellora
