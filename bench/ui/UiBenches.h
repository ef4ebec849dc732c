#pragma once

#include <QImage>

namespace vellora {

/// A picture with detail everywhere, the same each time.
QImage benchScenery(int width, int height);

/// Registers a benchmark for each filter of the catalogue, which must exist by then.
void registerSliderSteps();

}  // namespace vellora
