#pragma once

#include <QImage>

namespace vellora::cli {

/// A bright landscape at preview size, for when no photo is at hand.
QImage paintSamplePhoto();

}  // namespace vellora::cli
