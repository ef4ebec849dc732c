#pragma once

namespace vellora {

/// Registers a benchmark for each filter of the catalogue, which must exist by then.
void registerSliderSteps();

}  // namespace vellora
