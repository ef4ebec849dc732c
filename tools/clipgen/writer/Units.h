#pragma once

#include <algorithm>
#include <cmath>

#include "writer/Drawing.h"

namespace vellora::clipgen {

/// Whole units of a file: as fine as 16 bits allow, with room for what hangs over the edges.
class Units {
public:
    explicit Units(const Drawing& drawing)
        : m_scale(kLongest / std::max(drawing.size().width(), drawing.size().height())) {}

    double scale() const { return m_scale; }
    int length(double value) const { return static_cast<int>(std::lround(value * m_scale)); }
    /// A line is never thinner than one unit, which would mean a pixel.
    int lineWidth(double value) const { return std::max(1, length(value)); }

private:
    static constexpr double kLongest = 20'000;
    double m_scale;
};

}  // namespace vellora::clipgen
