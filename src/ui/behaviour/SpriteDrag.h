#pragma once

#include <QPoint>
#include <QSize>

#include <vellora/model/DVDImageSprite.h>

#include "ui/behaviour/Bounded.h"
#include "ui/behaviour/SpriteHit.h"

namespace vellora {

/// Where a sprite lies, in stage units.
struct SpritePlace {
    QPoint position;
    QSize size;

    friend bool operator==(const SpritePlace&, const SpritePlace&) = default;
};

/// Dragging a sprite with the mouse: moving it, or resizing an art clip by a handle.
class SpriteDrag {
public:
    /// Art clips are not made smaller than this by dragging, in stage units.
    static constexpr int kSmallest = 8;

    void begin(const SpriteHit& hit, QPoint point);
    void end() { m_hit = {}; }
    [[nodiscard]] bool isActive() const { return m_hit.sprite != nullptr; }
    /// The dragged sprite; it may have been deleted by others since.
    [[nodiscard]] CDVDImageSprite* sprite() const { return m_hit.sprite; }
    [[nodiscard]] bool isResizing() const;

    /// Where the sprite's top-left corner goes when the mouse is at a point.
    [[nodiscard]] QPoint movedTo(QPoint point) const {
        return boundedDifference(point, m_grabOffset);
    }
    /// Where the sprite lies when its handle is dragged to a point: the opposite edge or corner
    /// stays, and so do the proportions that the sprite had when the drag began.
    [[nodiscard]] SpritePlace resizedTo(QPoint point) const;

private:
    SpriteHit m_hit;
    QPoint m_grabOffset;
    SpritePlace m_start;
    double m_ratio = 1.0;
};

}  // namespace vellora
