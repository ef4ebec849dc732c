#pragma once

#include <QImage>
#include <QRectF>
#include <optional>

#include "text/Coverage.h"
#include "text/Enlarger.h"

namespace vellora {

/// The coverage of a shape, widened all round, that is drawn into a picture `blur` times smaller
/// than its bounds and enlarged to them again. Outside the bounds nothing is covered, and nothing
/// at all when they are smaller than `blur`. The cost is that of the pixels covered, whatever the
/// blur.
class GlowCoverage final : public Coverage {
public:
    /// @param shape   In the coordinates of the drawing, like the others.
    /// @param size    By how much it is widened.
    /// @param pixels  What is wanted of the device.
    GlowCoverage(const QPainterPath& shape, const QRectF& bounds, double size, int blur,
                 const QTransform& toPixels, const QRect& pixels);

    Run row(int y) override;

private:
    QImage m_small;  // one byte per sample
    std::optional<Enlarger> m_enlarger;
};

}  // namespace vellora
