#pragma once

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <memory>
#include <vector>

#include "text/Coverage.h"

namespace vellora {

/// Collects the layers of a text, the bottom one first, and paints them together, a few rows at a
/// time. Only what the painter can show is made, so that no size that a file asks for costs more
/// than the canvas.
class TextCanvas {
public:
    /// The painter must be active, and its transform only scale, without mirroring, and move.
    explicit TextCanvas(QPainter& painter);

    [[nodiscard]] static bool fits(const QPainter& painter);

    /// What can be seen, in the painter's coordinates.
    [[nodiscard]] const QRectF& visible() const { return m_visible; }
    /// Device pixels per unit, in the direction in which there are more or fewer.
    [[nodiscard]] double scale() const;
    [[nodiscard]] double smallerScale() const;

    /// Adds a path, filled by the winding rule.
    void fill(const QPainterPath& path, const QBrush& brush);
    /// Adds the glow of a shape; see `GlowCoverage`.
    void glow(const QPainterPath& shape, const QRectF& bounds, double size, int blur,
              const QBrush& brush);

    /// Paints the layers.
    void paint();

private:
    struct Layer {
        std::unique_ptr<Coverage> coverage;
        QBrush brush;
    };

    void add(std::unique_ptr<Coverage> coverage, const QBrush& brush);
    void paintLayer(const Layer& layer, const QRect& band, QImage& picture) const;

    QPainter& m_painter;
    QTransform m_toDevice;
    QRectF m_visible;
    QRect m_pixels;
    std::vector<Layer> m_layers;
};

}  // namespace vellora
