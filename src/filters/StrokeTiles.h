#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <opencv2/core.hpp>

#include "filters/Strokes.h"

namespace vellora {

/// The part of a picture that is painted at a time, so that its pixels stay in the cache.
struct StrokeTile {
    cv::Rect area;
    /// How many pixels the tiles before it have.
    std::size_t firstPixel;
};

/// Strokes sorted by the tiles that they touch, their order kept in each.
class StrokeTiles {
public:
    StrokeTiles(cv::Size picture, const Brush& brush, const std::vector<Stroke>& strokes);

    /// Calls `paint(tile, strokes)` for every tile, on OpenCV's thread pool; `strokes` is a range
    /// of `const Stroke*`.
    template <class Paint>
    void forEachTile(Paint paint) const {
        const int tiles = m_across * m_down;
        cv::parallel_for_(cv::Range(0, tiles), [&](const cv::Range& range) {
            for (int i = range.start; i < range.end; ++i) {
                const auto index = static_cast<std::size_t>(i);
                paint(tileAt(i), Strokes{m_sorted.data() + m_first[index],
                                         m_sorted.data() + m_first[index + 1]});
            }
        });
    }

private:
    static constexpr int kWidth = 256;
    static constexpr int kHeight = 128;

    struct Strokes {
        const Stroke* const* m_begin;
        const Stroke* const* m_end;
        [[nodiscard]] const Stroke* const* begin() const { return m_begin; }
        [[nodiscard]] const Stroke* const* end() const { return m_end; }
    };

    template <class Use>
    void forEachTouched(const Stroke& stroke, const Brush& brush, Use use) const;

    [[nodiscard]] StrokeTile tileAt(int index) const;

    cv::Size m_picture;
    int m_across;
    int m_down;
    std::vector<std::size_t> m_first;
    std::vector<const Stroke*> m_sorted;
};

}  // namespace vellora
