#pragma once

#include <opencv2/core.hpp>

namespace vellora {

/// Paints the picture as a watercolour: colours run together into washes whose edges are darker,
/// pigment settles unevenly, and the paper shines through.
///
/// The washes are a Kuwahara filter with soft selection (Papari, Petkov and Campisi, "Artistic edge
/// and corner enhancing smoothing", 2007); edges, turbulence and paper change the density of the
/// pigment (Bousseau et al., "Interactive watercolor rendering", 2006).
///
/// @param water  How wet the paint is: 0.3 keeps much of the drawing, 1 runs far. Bounded to 0..3.
void paintWatercolour(const cv::Mat& source, cv::Mat& target, float water);

}  // namespace vellora
