#pragma once

#include <QImage>

namespace vellora::screenshots {

/// The picture in 256 colours of its own choice, a third of the size as a PNG file.
QImage withPalette(const QImage& picture);

}  // namespace vellora::screenshots
