#pragma once

#include <QRectF>
#include <optional>

class QSvgRenderer;

namespace vellora {

/// What it costs to draw an SVG picture.
struct SvgCost {
    double work = 0;  ///< At a side of `metafile::kWorkSide` pixels, in units of its `kMaxWork`.
    /// Around all but simple paths, where the picture itself goes from 0 to 1.
    QRectF reach;
};

/// Whether a rectangle of pixels lies where the rasteriser cuts paths by slow means.
bool isFar(const QRectF& bounds);

/// Draws once without making pixels; nothing when that takes more work than a metafile may cost.
/// @param size  the proportions of the picture
std::optional<SvgCost> costOfDrawing(QSvgRenderer& renderer, const QSizeF& size);

}  // namespace vellora
