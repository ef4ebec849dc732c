#include "filters/StrokePlan.h"

#include <algorithm>

#include "base/AbortFlag.h"
#include "base/Random.h"

namespace vellora {
namespace {

/// So many pixels are not worth chasing: they keep the colours of the photo.
constexpr std::int64_t kUnpaintedLeft = 500;

}  // namespace

StrokePlan::StrokePlan(const cv::Mat& photo, const Brush& brush, bool stoppable)
    : m_photo(photo),
      m_brush(brush),
      m_bare(photo.size()),
      m_remaining(static_cast<std::int64_t>(photo.total())),
      m_stoppable(stoppable) {}

std::vector<Stroke> StrokePlan::next(std::size_t most) {
    std::vector<Stroke> strokes;
    RandomRun random;
    while (m_remaining > kUnpaintedLeft && strokes.size() < most && !m_stopped) {
        const int x = random.below(m_photo.cols);
        const int y = random.below(m_photo.rows);
        strokes.push_back({{x, y}, m_photo.ptr<cv::Vec3b>(y)[x]});
        // A stroke that finds nothing bare counts for one pixel, so that the end always comes.
        m_remaining -= std::max<std::int64_t>(cover(strokes.back()), 1);
        m_stopped = m_stoppable && abortRequested();
    }
    return strokes;
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
