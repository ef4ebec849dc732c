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

    /// Calls `paint(y, begin, end)` for the runs of the stroke centred at `centre`: row y, columns
    /// begin up to but not including end, clipped to a picture of the given size.
    template <class Paint>
    void forEachSpan(cv::Point centre, cv::Size picture, Paint paint) const {
        if (liesInside(centre, picture)) {
            for (const Run& run : m_runs) {
                paint(centre.y + run.dy, centre.x + run.begin, centre.x + run.end);
            }
            return;
        }
        for (const Run& run : m_runs) {
            const int y = centre.y + run.dy;
            const int begin = std::max(centre.x + run.begin, 0);
            const int end = std::min(centre.x + run.end, picture.width);
            if (y >= 0 && y < picture.height && begin < end) {
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

    [[nodiscard]] bool liesInside(cv::Point centre, cv::Size picture) const {
        return centre.x + m_bounds.x >= 0 && centre.y + m_bounds.y >= 0 &&
               centre.x + m_bounds.br().x <= picture.width &&
               centre.y + m_bounds.br().y <= picture.height;
    }

    std::vector<Run> m_runs;
    cv::Rect m_bounds;
    std::int64_t m_pixelCount;
};

/// Painters stop when no more pixels than this remain, and leave them as they are in the photo.
inline constexpr std::int64_t kUnpaintedLeft = 500;

/// The half length of a stroke that a painter is asked for, limited so that a file cannot ask for
/// more work than time allows. The limit lies far beyond what the sliders reach.
inline int strokeHalfLength(std::int64_t asked) {
    constexpr std::int64_t kLongest = 128;
    return static_cast<int>(std::clamp<std::int64_t>(asked, 0, kLongest));
}

}  // namespace vellora
