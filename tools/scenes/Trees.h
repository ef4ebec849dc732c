#pragma once

#include <QPainter>

#include "scenes/SceneMath.h"

namespace vellora::scenes {

/// Paints one conifer with its foot at `foot`, lit from the left; `needles` is the colour of
/// needles in even light.
void paintConifer(QPainter& painter, QPointF foot, double height, Vec3 needles, std::uint32_t seed);

}  // namespace vellora::scenes
