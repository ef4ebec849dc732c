#pragma once

#include <QPointF>
#include <QSizeF>
#include <QTransform>
#include <cstdint>

namespace vellora::metafile {

enum class MapMode : std::uint8_t {
    Text = 1,
    LowMetric,
    HighMetric,
    LowEnglish,
    HighEnglish,
    Twips,
    Isotropic,
    Anisotropic
};

/// The mapping from page units to units of the device the file was made for: map mode, window and
/// viewport. Extents may be negative (the axis is flipped); an extent of 0 is never taken over.
class PageTransform {
public:
    void setMapMode(std::uint32_t mode);
    void setDotsPerMillimetre(QSizeF dots) { m_dotsPerMm = dots; }

    void setWindowOrigin(QPointF origin) { m_windowOrigin = origin; }
    void setViewportOrigin(QPointF origin) { m_viewportOrigin = origin; }
    void offsetWindowOrigin(QPointF by) { m_windowOrigin += by; }
    void offsetViewportOrigin(QPointF by) { m_viewportOrigin += by; }
    void setWindowExtent(QSizeF extent);
    void setViewportExtent(QSizeF extent);
    void scaleWindowExtent(QPointF numerator, QPointF denominator);
    void scaleViewportExtent(QPointF numerator, QPointF denominator);

    MapMode mapMode() const { return m_mode; }
    /// Device units per page unit, negative for a flipped axis.
    QPointF scale() const;
    QTransform toDevice() const;

private:
    bool hasFreeExtents() const {
        return m_mode == MapMode::Isotropic || m_mode == MapMode::Anisotropic;
    }

    MapMode m_mode = MapMode::Text;
    QPointF m_windowOrigin;
    QPointF m_viewportOrigin;
    QSizeF m_windowExtent{1, 1};
    QSizeF m_viewportExtent{1, 1};
    QSizeF m_dotsPerMm{96 / 25.4, 96 / 25.4};
};

}  // namespace vellora::metafile
