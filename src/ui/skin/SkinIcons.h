#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

namespace vellora::skin {

enum class Icon {
    None,
    FlipX,
    FlipY,
    RotateLeft,
    RotateRight,
    Previous,
    Next,
    Close,
    Maximize,
    Restore,
    AddText,
    Macro,
    Album,
    Delete,
    Broken,
};

/// Draws an icon as paths into a rectangle, as sharp as the painter's device allows.
void drawIcon(QPainter& painter, const QRectF& rect, Icon icon, const QColor& colour);

/// The icon for buttons that take one; drawn anew for every size and device pixel ratio.
QIcon makeIcon(Icon icon);

}  // namespace vellora::skin
