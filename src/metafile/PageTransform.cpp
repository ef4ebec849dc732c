#include "metafile/PageTransform.h"

#include <algorithm>
#include <cmath>

namespace vellora::metafile {
namespace {

constexpr double kMmPerInch = 25.4;

bool isUsable(QSizeF extent) {
    return extent.width() != 0 && extent.height() != 0;
}

QSizeF scaled(QSizeF extent, QPointF numerator, QPointF denominator) {
    if (denominator.x() == 0 || denominator.y() == 0)
        return extent;
    const QSizeF result(extent.width() * numerator.x() / denominator.x(),
                        extent.height() * numerator.y() / denominator.y());
    return isUsable(result) ? result : extent;
}

/// Millimetres per page unit of the modes with a fixed unit.
double unitMillimetres(MapMode mode) {
    switch (mode) {
        case MapMode::LowMetric:
            return 0.1;
        case MapMode::HighMetric:
            return 0.01;
        case MapMode::LowEnglish:
            return kMmPerInch / 100;
        case MapMode::HighEnglish:
            return kMmPerInch / 1000;
        case MapMode::Twips:
            return kMmPerInch / 1440;
        default:
            return 0;
    }
}

}  // namespace

void PageTransform::setMapMode(std::uint32_t mode) {
    if (mode >= static_cast<std::uint32_t>(MapMode::Text) &&
        mode <= static_cast<std::uint32_t>(MapMode::Anisotropic))
        m_mode = static_cast<MapMode>(mode);
}

void PageTransform::setWindowExtent(QSizeF extent) {
    if (hasFreeExtents() && isUsable(extent))
        m_windowExtent = extent;
}

void PageTransform::setViewportExtent(QSizeF extent) {
    if (hasFreeExtents() && isUsable(extent))
        m_viewportExtent = extent;
}

void PageTransform::scaleWindowExtent(QPointF numerator, QPointF denominator) {
    setWindowExtent(scaled(m_windowExtent, numerator, denominator));
}

void PageTransform::scaleViewportExtent(QPointF numerator, QPointF denominator) {
    setViewportExtent(scaled(m_viewportExtent, numerator, denominator));
}

QPointF PageTransform::scale() const {
    if (m_mode == MapMode::Text)
        return {1, 1};
    if (const double millimetres = unitMillimetres(m_mode); millimetres > 0)
        return {m_dotsPerMm.width() * millimetres, -m_dotsPerMm.height() * millimetres};
    const QPointF free(m_viewportExtent.width() / m_windowExtent.width(),
                       m_viewportExtent.height() / m_windowExtent.height());
    if (m_mode == MapMode::Anisotropic)
        return free;
    const double same = std::min(std::abs(free.x()), std::abs(free.y()));
    return {std::copysign(same, free.x()), std::copysign(same, free.y())};
}

QTransform PageTransform::toDevice() const {
    const QPointF factor = scale();
    return QTransform(factor.x(), 0, 0, factor.y(),
                      m_viewportOrigin.x() - m_windowOrigin.x() * factor.x(),
                      m_viewportOrigin.y() - m_windowOrigin.y() * factor.y());
}

}  // namespace vellora::metafile
