#pragma once

#include <QPoint>
#include <Qt>
#include <optional>

#include "ui/behaviour/CropFrame.h"
#include "ui/behaviour/SpriteDrag.h"

namespace vellora {

class EditSession;

/// What the mouse drags on the canvas: the crop frame while there is one, else a sprite.
class CanvasMouse {
public:
    /// @param session  Not owned; outlives this.
    explicit CanvasMouse(EditSession& session) : m_session(session) {}

    [[nodiscard]] CropFrame& crop() { return m_crop; }
    [[nodiscard]] const CropFrame& crop() const { return m_crop; }
    [[nodiscard]] bool isDown() const { return m_isDown; }
    [[nodiscard]] bool isDraggingSprite() const { return m_drag.isActive(); }

    /// The left button goes down.
    void press(QPoint point);
    /// The press met a sprite, which can now be dragged.
    void grab(const SpriteHit& hit, QPoint point) { m_drag.begin(hit, point); }
    /// @return Whether the crop frame looks different now.
    bool move(QPoint point);
    void release();
    /// Lets go of the sprite.
    void drop() { m_drag.end(); }

    /// The cursor that tells what a press would do; none in the middle of a drag.
    [[nodiscard]] std::optional<Qt::CursorShape> cursorAt(QPoint point) const;

private:
    void dragSprite(QPoint point);

    EditSession& m_session;
    CropFrame m_crop;
    SpriteDrag m_drag;
    bool m_isDown = false;
};

}  // namespace vellora
