#include "model/SelectionMarks.h"

#include <QPainter>
#include <QPen>

#include <vellora/model/DVDImageSprite.h>

namespace vellora {

void drawSelectionMarks(QPainter& painter, const CDVDImageSprite& sprite, const QRectF& outline,
                        QPoint offset) {
    constexpr int kHandleReach = 3;
    constexpr int kHandleSide = 2 * kHandleReach + 1;
    const QColor outlineColour(0, 120, 0, 230);
    const QColor handleColour(0, 168, 255, 200);

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(outlineColour, 2.0, Qt::DashDotLine));
    painter.drawRect(outline);
    for (int index = 1; index <= sprite.GetHandleCount(); ++index) {
        const QPoint corner =
            sprite.GetHandlePoint(offset, index) - QPoint(kHandleReach, kHandleReach);
        painter.fillRect(QRect(corner, QSize(kHandleSide, kHandleSide)), handleColour);
    }
    painter.restore();
}

}  // namespace vellora
