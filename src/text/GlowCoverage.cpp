#include "text/GlowCoverage.h"

#include <algorithm>
#include <cmath>

#include "text/PathTools.h"

namespace vellora {
namespace {

/// Samples beyond the wanted pixels that the ones at the edge reach for.
constexpr int kMargin = 3;

/// One direction of the small picture: which part of it is needed, and where that lies.
struct Axis {
    double perUnit = 0.0;    ///< Samples per unit of the drawing.
    Enlargement onDevice{};  ///< Of the needed part.
    int first = 0;           ///< The first sample needed.
    int count = 0;

    /// @param length    Of the bounds, in units.
    /// @param origin    Where the bounds start on the device.
    /// @param scale     Device pixels per unit.
    /// @param from, to  The pixels wanted, `to` exclusive.
    Axis(double length, double origin, double scale, int blur, int from, int to) {
        const double samples = std::trunc(length / blur);
        if (samples < 1.0) {
            return;
        }
        // Samples finer than the device's pixels would show no more.
        const double pixelsPerSample = scale * length / samples;
        const double reduction = std::min(pixelsPerSample, 1.0);
        perUnit = reduction / blur;
        onDevice.factor = pixelsPerSample / reduction;
        const double end = std::ceil(samples * reduction);
        const double low = std::floor((from - origin) / onDevice.factor) - kMargin;
        const double high = std::ceil((to - origin) / onDevice.factor) + kMargin;
        first = static_cast<int>(std::clamp(low, 0.0, end));
        count = static_cast<int>(std::clamp(high, 0.0, end)) - first;
        onDevice.origin = origin + first * onDevice.factor;
    }
};

void addTo(QImage& picture, Coverage& coverage) {
    for (int y = coverage.area().top(); y <= coverage.area().bottom(); ++y) {
        const Coverage::Run run = coverage.row(y);
        quint8* values = picture.scanLine(y) + run.x;
        for (std::size_t i = 0; i < run.values.size(); ++i) {
            const int both = values[i] + run.values[i] - values[i] * run.values[i] / 255;
            values[i] = static_cast<quint8>(both);
        }
    }
}

}  // namespace

GlowCoverage::GlowCoverage(const QPainterPath& shape, const QRectF& bounds, double size, int blur,
                           const QTransform& toPixels, const QRect& pixels) {
    const QRectF onDevice = toPixels.mapRect(bounds);
    const QRect target = (onDevice & QRectF(pixels)).toAlignedRect() & pixels;
    if (target.isEmpty()) {
        return;
    }
    const Axis x(bounds.width(), onDevice.left(), toPixels.m11(), blur, target.left(),
                 target.right() + 1);
    const Axis y(bounds.height(), onDevice.top(), toPixels.m22(), blur, target.top(),
                 target.bottom() + 1);
    if (x.count <= 0 || y.count <= 0) {
        return;
    }
    m_small = QImage(x.count, y.count, QImage::Format_Alpha8);
    if (m_small.isNull()) {
        return;
    }
    m_small.fill(0);
    const QTransform toSmall = QTransform::fromTranslate(-bounds.left(), -bounds.top()) *
                               QTransform::fromScale(x.perUnit, y.perUnit) *
                               QTransform::fromTranslate(-x.first, -y.first);
    OutlineCoverage inner(shape, toSmall, m_small.rect());
    addTo(m_small, inner);
    OutlineCoverage outer(widened(shape, 2 * size, std::max(x.perUnit, y.perUnit)), toSmall,
                          m_small.rect());
    addTo(m_small, outer);
    m_enlarger.emplace(m_small, x.onDevice, y.onDevice, target);
    setArea(target);
}

Coverage::Run GlowCoverage::row(int y) {
    return {area().left(), m_enlarger->row(y)};
}

}  // namespace vellora
