#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <opencv2/core.hpp>

#include "filters/BarePixels.h"
#include "filters/Strokes.h"

namespace vellora {

/// Decides where random strokes fall, and how many are needed to cover a picture, before any of
/// them is painted: painters can then take them in whatever order suits the memory.
///
/// White is the colour of a bare canvas. A white stroke therefore leaves what was bare bare, and
/// covers the same pixels anew each time.
class StrokePlan {
public:
    /// How many strokes may lie on a pixel. Where only the first one shows, those that find nothing
    /// bare are not told, and the abort flag ends the plan.
    enum class Layers { One, Many };

    /// @param photo  Blue-green-red; gives a stroke the colour under its centre. Shared, and not to
    ///               be changed before the last call of `next`.
    StrokePlan(const cv::Mat& photo, const Brush& brush, Layers layers);

    /// The next strokes, at most `most` of them; none when all are told. Draws from the module's
    /// generator, for each stroke first the column and then the row.
    [[nodiscard]] std::vector<Stroke> next(std::size_t most);

    /// Whether the abort flag has ended the plan.
    [[nodiscard]] bool stopped() const { return m_stopped; }

private:
    [[nodiscard]] bool wantsMore() const;

    /// Returns the number of bare pixels that the stroke covers.
    std::int64_t cover(const Stroke& stroke);

    cv::Mat m_photo;
    const Brush& m_brush;
    BarePixels m_bare;
    std::int64_t m_remaining;
    Layers m_layers;
    bool m_stopped = false;
};

}  // namespace vellora
