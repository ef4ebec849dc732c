#include "ui/behaviour/CanvasMouse.h"

#include "ui/EditSession.h"
#include "ui/behaviour/SpriteHit.h"

namespace vellora {
namespace {

Qt::CursorShape cursorShape(SpriteCursor cursor) {
    switch (cursor) {
        case SpriteCursor::SizeNS:
            return Qt::SizeVerCursor;
        case SpriteCursor::SizeNESW:
            return Qt::SizeBDiagCursor;
        case SpriteCursor::SizeWE:
            return Qt::SizeHorCursor;
        case SpriteCursor::Move:
            return Qt::SizeAllCursor;
        case SpriteCursor::SizeNWSE:
            break;
    }
    return Qt::SizeFDiagCursor;
}

Qt::CursorShape cropCursorShape(int handle) {
    switch (handle) {
        case 1:
        case 5:
            return Qt::SizeFDiagCursor;
        case 2:
        case 6:
            return Qt::SizeVerCursor;
        case 3:
        case 7:
            return Qt::SizeBDiagCursor;
        case 4:
        case 8:
            return Qt::SizeHorCursor;
        case CropFrame::kInside:
            return Qt::SizeAllCursor;
        default:
            return Qt::ArrowCursor;
    }
}

}  // namespace

void CanvasMouse::press(QPoint point) {
    m_isDown = true;
    if (!m_crop.isEmpty()) {
        m_crop.press(point);
    }
}

bool CanvasMouse::move(QPoint point) {
    if (m_crop.isEmpty()) {
        dragSprite(point);
        return false;
    }
    if (m_isDown) {
        return m_crop.drag(point);
    }
    const int before = m_crop.handle();
    m_crop.hover(point);
    return m_crop.handle() != before;
}

void CanvasMouse::dragSprite(QPoint point) {
    if (!m_session.holds(m_drag.sprite())) {
        m_drag.end();
    } else if (m_drag.isResizing()) {
        const SpritePlace place = m_drag.resizedTo(point);
        m_session.placeSprite(m_drag.sprite(), place.position, place.size);
    } else {
        m_session.moveSprite(m_drag.sprite(), m_drag.movedTo(point));
    }
}

void CanvasMouse::release() {
    m_isDown = false;
    m_crop.release();
    m_drag.end();
}

std::optional<Qt::CursorShape> CanvasMouse::cursorAt(QPoint point) const {
    if (!m_crop.isEmpty()) {
        return cropCursorShape(m_crop.handle());
    }
    if (m_drag.isActive()) {
        return std::nullopt;
    }
    const SpriteHit hit = spriteAt(m_session, point);
    return hit.sprite != nullptr ? cursorShape(hit.sprite->GetHandleCursor(hit.code))
                                 : Qt::ArrowCursor;
}

}  // namespace vellora
