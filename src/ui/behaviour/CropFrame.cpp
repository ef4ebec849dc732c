#include "ui/behaviour/CropFrame.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr int kHandleReach = 3;

/// Width over height and height over width of an aspect mode.
struct Aspect {
    double wide;
    double high;
};

Aspect aspectOf(int mode) {
    return mode == kCropFourToThree ? Aspect{4.0 / 3.0, 3.0 * 0.25}
                                    : Aspect{16.0 / 9.0, 9.0 * 0.0625};
}

int scaled(int length, double factor) {
    return static_cast<int>(length * factor);
}

/// The largest frame of an aspect mode inside the photo, centred.
Rect largestFrame(int mode, const Rect& placed) {
    int width = mode == kCropFourToThree ? static_cast<int>(placed.height() * 4.0 / 3.0)
                                         : static_cast<int>(placed.height() * 16.0 / 9.0);
    int height = placed.height();
    if (width > placed.width()) {
        width = placed.width();
        height = mode == kCropFourToThree ? static_cast<int>(3.0 * width * 0.25)
                                          : static_cast<int>(9.0 * width * 0.0625);
    }
    const int left = placed.left + (placed.width() - width) / 2;
    const int top = placed.top + (placed.height() - height) / 2;
    return {left, top, left + width, top + height};
}

bool touchesLeft(int handle) {
    return handle == 1 || handle == 7 || handle == 8;
}
bool touchesTop(int handle) {
    return handle >= 1 && handle <= 3;
}
bool touchesRight(int handle) {
    return handle >= 3 && handle <= 5;
}
bool touchesBottom(int handle) {
    return handle >= 5 && handle <= 7;
}

}  // namespace

bool CropFrame::setMode(int mode, const Rect& placed) {
    if (mode == m_mode || mode < kCropManual || mode > kCropNone) {
        return false;
    }
    if (placed.isEmpty()) {
        // Without a picture the frame stays; but where there is none, "none" is what it is.
        if (mode == kCropNone && isEmpty()) {
            m_mode = mode;
        }
        return false;
    }
    m_mode = mode;
    m_bounds = placed;
    m_handle = kNoHandle;
    if (mode == kCropNone) {
        m_frame = {};
    } else {
        m_frame = mode == kCropManual ? placed : largestFrame(mode, placed);
    }
    return true;
}

void CropFrame::clear() {
    m_frame = {};
    m_bounds = {};
    m_handle = kNoHandle;
}

void CropFrame::drop() {
    clear();
    m_mode = kCropNone;
}

QPoint CropFrame::handlePoint(int handle) const {
    const int middleX = m_frame.left + m_frame.width() / 2;
    const int middleY = m_frame.top + m_frame.height() / 2;
    const int x = touchesLeft(handle)    ? m_frame.left
                  : touchesRight(handle) ? m_frame.right
                                         : middleX;
    const int y = touchesTop(handle)      ? m_frame.top
                  : touchesBottom(handle) ? m_frame.bottom
                                          : middleY;
    return {x, y};
}

int CropFrame::handleAt(QPoint point) const {
    if (isEmpty()) {
        return kNoHandle;
    }
    for (int handle = 1; handle < kInside; ++handle) {
        const QPoint centre = handlePoint(handle);
        const Rect square{centre.x() - kHandleReach, centre.y() - kHandleReach,
                          centre.x() + kHandleReach, centre.y() + kHandleReach};
        if (square.contains(point.x(), point.y())) {
            return handle;
        }
    }
    return m_frame.contains(point.x(), point.y()) ? kInside : kNoHandle;
}

void CropFrame::press(QPoint point) {
    hover(point);
    m_grab = point;
    m_grabbed = m_frame;
}

bool CropFrame::drag(QPoint point) {
    if (isEmpty() || m_handle == kNoHandle) {
        return false;
    }
    Rect dragged;
    if (m_mode == kCropManual) {
        dragged = m_handle == kInside ? movedFreely(point) : draggedFreely(point);
    } else {
        dragged = m_handle == kInside ? movedStepwise(point) : draggedKeepingAspect(point);
    }
    const bool changed = dragged != m_frame;
    m_frame = dragged;
    return changed;
}

Rect CropFrame::draggedFreely(QPoint point) const {
    Rect dragged = m_frame;
    if (touchesLeft(m_handle)) {
        dragged.left = point.x();
    }
    if (touchesTop(m_handle)) {
        dragged.top = point.y();
    }
    if (touchesRight(m_handle)) {
        dragged.right = point.x();
    }
    if (touchesBottom(m_handle)) {
        dragged.bottom = point.y();
    }
    const bool allowed = !dragged.isEmpty() && dragged.left >= m_bounds.left &&
                         dragged.top >= m_bounds.top && dragged.right <= m_bounds.right &&
                         dragged.bottom <= m_bounds.bottom;
    return allowed ? dragged : m_frame;
}

Rect CropFrame::draggedKeepingAspect(QPoint point) const {
    const auto [wide, high] = aspectOf(m_mode);
    const auto& [left, top, right, bottom] = m_frame;
    const int x = point.x();
    const int y = point.y();
    const bool xOnLeft = x >= m_bounds.left && x < right;
    const bool xOnRight = x > left && x <= m_bounds.right;
    Rect dragged = m_frame;
    bool allowed = false;
    switch (m_handle) {
        case 1:
        case 8:
            dragged = {x, bottom - scaled(right - x, high), right, bottom};
            allowed = xOnLeft && dragged.top >= m_bounds.top;
            break;
        case 2:
            dragged = {right - scaled(bottom - y, wide), y, right, bottom};
            allowed = y >= m_bounds.top && y < bottom && dragged.left >= m_bounds.left;
            break;
        case 3:
            // Compared with the far bound, as are handles 4 and 5: these can leave the photo.
            dragged = {left, bottom - scaled(x - left, high), x, bottom};
            allowed = xOnRight && dragged.top <= m_bounds.bottom;
            break;
        case 4:
        case 5:
            dragged = {left, top, x, top + scaled(x - left, high)};
            allowed = xOnRight && dragged.bottom >= m_bounds.top;
            break;
        case 6:
            dragged = {left, top, left + scaled(y - top, wide), y};
            allowed = y > top && y <= m_bounds.bottom && dragged.right <= m_bounds.right;
            break;
        default:
            dragged = {x, top, right, top + scaled(right - x, high)};
            allowed = xOnLeft && dragged.bottom <= m_bounds.bottom;
            break;
    }
    // A frame narrowed until its height vanishes would be no frame any more.
    return allowed && !dragged.isEmpty() ? dragged : m_frame;
}

Rect CropFrame::movedFreely(QPoint point) const {
    const QPoint moved = point - m_grab;
    const int dx =
        std::clamp(moved.x(), m_bounds.left - m_grabbed.left, m_bounds.right - m_grabbed.right);
    const int dy =
        std::clamp(moved.y(), m_bounds.top - m_grabbed.top, m_bounds.bottom - m_grabbed.bottom);
    return m_grabbed.translated(dx, dy);
}

Rect CropFrame::movedStepwise(QPoint point) const {
    const Rect wanted = m_grabbed.translated(point.x() - m_grab.x(), point.y() - m_grab.y());
    Rect moved = m_frame;
    if (wanted.left >= m_bounds.left && wanted.right <= m_bounds.right) {
        moved.left = wanted.left;
        moved.right = wanted.right;
    }
    if (wanted.top >= m_bounds.top && wanted.bottom <= m_bounds.bottom) {
        moved.top = wanted.top;
        moved.bottom = wanted.bottom;
    }
    return moved;
}

}  // namespace vellora
