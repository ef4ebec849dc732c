#include "filters/Strokes.h"

#include <tuple>

namespace vellora {

Brush::Brush(const std::vector<BrushOffset>& offsets)
    : m_pixelCount(static_cast<std::int64_t>(offsets.size())) {
    std::vector<BrushOffset> sorted = offsets;
    std::sort(sorted.begin(), sorted.end(), [](const BrushOffset& a, const BrushOffset& b) {
        return std::tie(a.dy, a.dx) < std::tie(b.dy, b.dx);
    });
    for (const BrushOffset& offset : sorted) {
        if (!m_runs.empty() && m_runs.back().dy == offset.dy && m_runs.back().end == offset.dx) {
            ++m_runs.back().end;
        } else {
            m_runs.push_back({offset.dy, offset.dx, offset.dx + 1});
        }
        m_bounds |= cv::Rect(offset.dx, offset.dy, 1, 1);
    }
}

}  // namespace vellora
