#pragma once

#include <QPainter>

namespace vellora::scenes {

/// Long hair behind the shoulders, in the units of the portrait.
void paintHairBehind(QPainter& painter);

/// The hair that frames the face, parted on one side.
void paintHairInFront(QPainter& painter);

}  // namespace vellora::scenes
