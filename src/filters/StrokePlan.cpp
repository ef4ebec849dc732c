#include "filters/StrokePlan.h"

#include <algorithm>
#include <array>

#include "base/AbortFlag.h"
#include "base/Random.h"

namespace vellora {
namespace {

/// So many pixels are not worth chasing: they keep the colours of the photo.
constexpr std::int64_t kUnpaintedLeft = 500;

}  // namespace

StrokePlan::StrokePlan(const cv::Mat& photo, const Brush& brush, Layers layers)
    : m_photo(photo),
      m_brush(brush),
      m_bare(photo.size()),
      m_remaining(static_cast<std::int64_t>(photo.total())),
      m_layers(layers) {}

std::vector<Stroke> StrokePlan::next(std::size_t most) {
    // Some strokes are drawn ahead, so that the memory is asked for their colours all at once.
    constexpr std::size_t kAhead = 32;
    std::array<std::uint32_t, kAhead> places;
    std::vector<Stroke> strokes;
    RandomRun random;
    while (wantsMore() && strokes.size() < most) {
        const std::size_t first = strokes.size();
        for (std::size_t i = 0; i < std::min(kAhead, most - first); ++i) {
            const int x = random.below(m_photo.cols);
            const int y = random.below(m_photo.rows);
            places[i] = random.place();
            strokes.push_back({{x, y}, m_photo.ptr<cv::Vec3b>(y)[x]});
        }
        std::size_t used = first;
        std::size_t kept = first;
        for (; wantsMore() && used < strokes.size(); ++used) {
            const std::int64_t fresh = cover(strokes[used]);
            // A stroke that finds nothing bare counts for one pixel, so that the end always comes.
            m_remaining -= std::max<std::int64_t>(fresh, 1);
            if (fresh > 0 || m_layers == Layers::Many) {
                strokes[kept++] = strokes[used];
            }
            m_stopped = m_layers == Layers::One && abortRequested();
        }
        random.goBack(places[used - first - 1]);
        strokes.resize(kept);
    }
    return strokes;
}

bool StrokePlan::wantsMore() const {
    return m_remaining > kUnpaintedLeft && !m_stopped;
}

std::int64_t StrokePlan::cover(const Stroke& stroke) {
    const bool white = stroke.colour == cv::Vec3b::all(255);
    const cv::Rect picture({}, m_photo.size());
    std::int64_t fresh = 0;
    m_brush.forEachSpan(stroke.centre, picture, [&](int y, int begin, int end) {
        fresh += white ? m_bare.countSpan(y, begin, end) : m_bare.coverSpan(y, begin, end);
    });
    return fresh;
}

}  // namespace vellora
