#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <Qt>

namespace vellora {

/// Where in a frame the mouse is: sizing zones at the edges, the move zone at the top.
enum FrameZone : unsigned {
    kZoneNone = 0,
    kZoneLeft = 1,
    kZoneRight = 2,
    kZoneTop = 4,
    kZoneBottom = 8,
    kZoneMove = 16,
};

/// Depth of the sizing zones along the edges.
inline constexpr int kSizingZone = 5;
/// Height of the move zone.
inline constexpr int kMoveZone = 22;
/// A frame is never made smaller than this.
inline constexpr QSize kMinimumFrame{400, 300};

/// The zone of a point: one or two edges, else the move zone or none.
unsigned frameZoneAt(QPoint point, QSize frame);

Qt::CursorShape cursorOfZone(unsigned zone);

/// The rectangle of a frame after a drag.
///
/// @param start    The frame when the drag began.
/// @param zone     Where it began.
/// @param by       How far the mouse has moved since.
/// @param minimum  The smallest size; the edge that is not dragged stays where it is.
QRect draggedFrame(const QRect& start, unsigned zone, QPoint by, QSize minimum);

}  // namespace vellora
