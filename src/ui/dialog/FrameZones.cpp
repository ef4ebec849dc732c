#include "ui/dialog/FrameZones.h"

#include <algorithm>

namespace vellora {

unsigned frameZoneAt(QPoint point, QSize frame) {
    unsigned zone = kZoneNone;
    if (point.x() < kSizingZone) {
        zone |= kZoneLeft;
    } else if (point.x() >= frame.width() - kSizingZone) {
        zone |= kZoneRight;
    }
    if (point.y() < kSizingZone) {
        zone |= kZoneTop;
    } else if (point.y() >= frame.height() - kSizingZone) {
        zone |= kZoneBottom;
    }
    if (zone == kZoneNone && point.y() < kMoveZone) {
        return kZoneMove;
    }
    return zone;
}

Qt::CursorShape cursorOfZone(unsigned zone) {
    switch (zone) {
        case kZoneLeft:
        case kZoneRight:
            return Qt::SizeHorCursor;
        case kZoneTop:
        case kZoneBottom:
            return Qt::SizeVerCursor;
        case kZoneLeft | kZoneTop:
        case kZoneRight | kZoneBottom:
            return Qt::SizeFDiagCursor;
        case kZoneRight | kZoneTop:
        case kZoneLeft | kZoneBottom:
            return Qt::SizeBDiagCursor;
        default:
            return Qt::ArrowCursor;
    }
}

QRect draggedFrame(const QRect& start, unsigned zone, QPoint by, QSize minimum) {
    if ((zone & kZoneMove) != 0) {
        return start.translated(by);
    }
    QRect frame = start;
    if ((zone & kZoneLeft) != 0) {
        frame.setLeft(std::min(start.left() + by.x(), start.right() + 1 - minimum.width()));
    }
    if ((zone & kZoneRight) != 0) {
        frame.setRight(std::max(start.right() + by.x(), start.left() - 1 + minimum.width()));
    }
    if ((zone & kZoneTop) != 0) {
        frame.setTop(std::min(start.top() + by.y(), start.bottom() + 1 - minimum.height()));
    }
    if ((zone & kZoneBottom) != 0) {
        frame.setBottom(std::max(start.bottom() + by.y(), start.top() - 1 + minimum.height()));
    }
    return frame;
}

}  // namespace vellora
