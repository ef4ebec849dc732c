#pragma once

#include <QImage>

namespace vellora::scenes {

/// Lets light beyond `threshold` (0 to 1) spill over its surroundings, as in a lens: a wide blur of
/// the bright parts is added. `radius` is in pixels.
void addBloom(QImage& image, double threshold, double radius, double strength);

/// Blurs the whole picture as if it were out of focus by about `radius` pixels.
void defocus(QImage& image, double radius);

}  // namespace vellora::scenes
