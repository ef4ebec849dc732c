#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "metafile/DisplayList.h"
#include "metafile/PathCutter.h"

namespace vellora::metafile {
namespace {

/// Pixels outside the surface that paths may reach. The rasteriser visits all that a path crosses,
/// and beyond 32,767 pixels it cuts paths by means that cost time beyond measure on those of
/// strangers.
constexpr double kSafeReach = 1'000;
constexpr double kMargin = 64;

/// The painter's surface, seen in the coordinates of the list.
struct Surface {
    QRectF visible;
    QRectF safe;
    double scale = 1;

    Surface(const QPainter& painter, const QTransform& toSurface) {
        bool invertible = false;
        const QTransform back = toSurface.inverted(&invertible);
        if (!invertible)
            return;
        const QPaintDevice& device = *painter.device();
        const double ratio = device.devicePixelRatioF();
        const QRectF all(0, 0, device.width() * ratio, device.height() * ratio);
        visible = back.mapRect(all.adjusted(-kMargin, -kMargin, kMargin, kMargin));
        safe = back.mapRect(all.adjusted(-kSafeReach, -kSafeReach, kSafeReach, kSafeReach));
        scale = std::sqrt(std::abs(toSurface.determinant()));
    }
};

class Replayer {
public:
    Replayer(QPainter& painter, const QTransform& toPainter, const Surface& surface)
        : m_painter(painter), m_toPainter(toPainter), m_surface(surface) {}

    void operator()(const FillItem& item) const {
        const QRectF bounds = item.path.controlPointRect();
        if (m_surface.safe.contains(bounds))
            m_painter.fillPath(item.path, item.brush);
        else
            m_painter.fillPath(cutFilled(item.path, m_surface.visible, m_surface.scale),
                               item.brush);
    }

    void operator()(const ImageItem& item) const {
        m_painter.setTransform(item.toDevice * m_toPainter);
        m_painter.setOpacity(m_painter.opacity() * item.opacity);
        drawReduced(item);
        m_painter.setOpacity(m_opacity);
        m_painter.setTransform(m_toPainter);
    }

    void setClip(const ClipParts& parts) const {
        for (const ClipPart& part : parts) {
            if (m_surface.safe.contains(part.path.controlPointRect()))
                m_painter.setClipPath(part.path, Qt::IntersectClip);
            else
                m_painter.setClipPath(cutFilled(part.path, m_surface.visible, m_surface.scale),
                                      Qt::IntersectClip);
        }
    }

private:
    /// Bilinear sampling skips pixels when an image is drawn much smaller, so it is averaged first.
    void drawReduced(const ImageItem& item) const {
        const QTransform onDevice = m_painter.deviceTransform();
        const double across = std::hypot(onDevice.m11(), onDevice.m12());
        const double down = std::hypot(onDevice.m21(), onDevice.m22());
        const QRectF place = item.source;
        const QSize reduced(static_cast<int>(std::ceil(item.source.width() * across)),
                            static_cast<int>(std::ceil(item.source.height() * down)));
        const bool shrinks =
            across < 0.5 && down < 0.5 && reduced.width() > 0 && reduced.height() > 0;
        if (!shrinks) {
            m_painter.drawImage(place, item.image, item.source);
            return;
        }
        const QImage part = item.image.copy(item.source.toAlignedRect());
        const QImage small = part.scaled(reduced, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        m_painter.drawImage(place, small, QRectF(small.rect()));
    }

    QPainter& m_painter;
    QTransform m_toPainter;
    Surface m_surface;
    double m_opacity = m_painter.opacity();
};

}  // namespace

void DisplayList::replay(QPainter& painter, const QTransform& toTarget, const QRectF& frame) const {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(toTarget, true);
    painter.setClipRect(frame, Qt::IntersectClip);
    const Surface surface(painter, painter.deviceTransform());
    const Replayer replayer(painter, painter.transform(), surface);
    std::uint32_t clip = 0;
    for (const Item& item : m_items) {
        if (!item.bounds.intersects(surface.visible))
            continue;
        if (item.clip != clip) {
            if (clip != 0)
                painter.restore();
            clip = item.clip;
            if (clip != 0) {
                painter.save();
                replayer.setClip(*m_clips[clip]);
            }
        }
        std::visit(replayer, item.what);
    }
    if (clip != 0)
        painter.restore();
    painter.restore();
}

}  // namespace vellora::metafile
