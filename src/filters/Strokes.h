#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <opencv2/core.hpp>

namespace vellora {

/// A pixel that a stroke covers, relative to the centre of the stroke.
struct BrushOffset {
    int dx;
    int dy;
};

/// The shape of a stroke as horizontal runs of pixels.
class Brush {
public:
    /// @param offsets  In any order, each at most once.
    explicit Brush(const std::vector<BrushOffset>& offsets);

    /// How many pixels a stroke covers inside a large picture.
    [[nodiscard]] std::int64_t pixelCount() const { return m_pixelCount; }

    /// The smallest rectangle that holds all offsets.
    [[nodiscard]] const cv::Rect& bounds() const { return m_bounds; }

    /// Calls `paint(y, begin, end)` for the runs of the stroke centred at `centre` that lie in
    /// `area`: row y, columns begin up to but not including end.
    template <class Paint>
    void forEachSpan(cv::Point centre, const cv::Rect& area, Paint paint) const {
        const cv::Rect covered = m_bounds + centre;
        if ((covered & area) == covered) {
            for (const Run& run : m_runs) {
                paint(centre.y + run.dy, centre.x + run.begin, centre.x + run.end);
            }
            return;
        }
        for (const Run& run : m_runs) {
            const int y = centre.y + run.dy;
            const int begin = std::max(centre.x + run.begin, area.x);
            const int end = std::min(centre.x + run.end, area.x + area.width);
            if (y >= area.y && y < area.y + area.height && begin < end) {
                paint(y, begin, end);
            }
        }
    }

private:
    struct Run {
        int dy;
        int begin;
        int end;
    };

    std::vector<Run> m_runs;
    cv::Rect m_bounds;
    std::int64_t m_pixelCount;
};

/// The half length of a stroke that a painter is asked for, limited so that a file cannot ask for
/// more work than time allows. The limit lies far beyond what the sliders reach.
inline int strokeHalfLength(std::int64_t asked) {
    constexpr std::int64_t kLongest = 128;
    return static_cast<int>(std::clamp<std::int64_t>(asked, 0, kLongest));
}

/// A stroke to be painted.
struct Stroke {
    cv::Point centre;
    cv::Vec3b colour;
};

}  // namespace vellora
