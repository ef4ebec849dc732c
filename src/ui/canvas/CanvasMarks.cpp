#include "ui/canvas/CanvasMarks.h"

#include <QPainter>
#include <QPainterPath>

#include <vellora/base/Types.h>
#include <vellora/model/DVDImageSprite.h>

#include "model/SelectionMarks.h"
#include "ui/behaviour/CropFrame.h"

namespace vellora {
namespace {

/// A line that shows on light and on dark: light over a wider dark one.
void drawTwoToneLine(QPainter& painter, QPointF from, QPointF to, double strength) {
    painter.setPen(QPen(QColor(0, 0, 0, static_cast<int>(110 * strength)), 3.0));
    painter.drawLine(from, to);
    painter.setPen(QPen(QColor(255, 255, 255, static_cast<int>(230 * strength)), 1.0));
    painter.drawLine(from, to);
}

void drawThirds(QPainter& painter, const QRectF& rect) {
    constexpr double kFaint = 0.45;
    for (const double part : {1.0 / 3.0, 2.0 / 3.0}) {
        const double x = rect.left() + rect.width() * part;
        const double y = rect.top() + rect.height() * part;
        drawTwoToneLine(painter, {x, rect.top()}, {x, rect.bottom()}, kFaint);
        drawTwoToneLine(painter, {rect.left(), y}, {rect.right(), y}, kFaint);
    }
}

void drawHandles(QPainter& painter, const CropFrame& frame) {
    painter.setPen(QPen(QColor(30, 30, 30, 220), 1.0));
    for (int handle = 1; handle < CropFrame::kInside; ++handle) {
        const bool isGrabbed = handle == frame.handle();
        painter.setBrush(isGrabbed ? QColor(0, 168, 255) : QColor(Qt::white));
        // At the edge of the canvas a handle is drawn just inside, where it can be seen.
        QPointF centre = frame.handlePoint(handle);
        centre.setX(qBound(4.0, centre.x(), kStageWidth - 4.0));
        centre.setY(qBound(4.0, centre.y(), kStageHeight - 4.0));
        painter.drawRect(QRectF(centre - QPointF(3.5, 3.5), QSizeF(7.0, 7.0)));
    }
}

}  // namespace

void drawSelection(QPainter& painter, const CDVDImageSprite& sprite) {
    const Rect rect = sprite.GetRect();
    const QSize size = sprite.GetSize();
    const QRectF outline(rect.left, rect.top, size.width(), size.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // Between the dashes, so that the outline also shows where the photo is dark or green.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 170), 2.0));
    painter.drawRect(outline);
    drawSelectionMarks(painter, sprite, outline, {});
    painter.restore();
}

void drawCropFrame(QPainter& painter, const CropFrame& frame) {
    if (frame.isEmpty()) {
        return;
    }
    const Rect& edges = frame.rect();
    const QRectF rect(edges.left, edges.top, edges.width(), edges.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outside;
    outside.addRect(0, 0, kStageWidth, kStageHeight);
    outside.addRect(rect);
    painter.fillPath(outside, QColor(0, 0, 0, 140));
    drawThirds(painter, rect);
    const QRectF line = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 160), 3.0));
    painter.drawRect(line);
    painter.setPen(QPen(Qt::white, 1.0));
    painter.drawRect(line);
    drawHandles(painter, frame);
    painter.restore();
}

void drawFocusFrame(QPainter& painter) {
    const QRect edge(0, 0, kStageWidth - 1, kStageHeight - 1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 1.0));
    painter.drawRect(edge.adjusted(1, 1, -1, -1));
    painter.setPen(QPen(QColor(0, 110, 200), 1.0));
    painter.drawRect(edge);
}

}  // namespace vellora
