#pragma once

#include <QPoint>
#include <QRectF>

class QPainter;

namespace vellora {

class CDVDImageSprite;

/// Draws the marks of a selected sprite in the painter's coordinates: a dash-dot outline, and a
/// square on each of the sprite's handle points moved by `offset`.
void drawSelectionMarks(QPainter& painter, const CDVDImageSprite& sprite, const QRectF& outline,
                        QPoint offset);

}  // namespace vellora
