#include "filters/StrokeTiles.h"

#include <numeric>

namespace vellora {

StrokeTiles::StrokeTiles(cv::Size picture, const Brush& brush, const std::vector<Stroke>& strokes)
    : m_picture(picture),
      m_across((picture.width + kWidth - 1) / kWidth),
      m_down((picture.height + kHeight - 1) / kHeight),
      m_first(static_cast<std::size_t>(m_across) * static_cast<std::size_t>(m_down) + 1) {
    for (const Stroke& stroke : strokes) {
        forEachTouched(stroke, brush, [this](std::size_t tile) { ++m_first[tile + 1]; });
    }
    std::partial_sum(m_first.begin(), m_first.end(), m_first.begin());
    m_sorted.resize(m_first.back());
    std::vector<std::size_t> place = m_first;
    for (const Stroke& stroke : strokes) {
        forEachTouched(stroke, brush, [&](std::size_t tile) { m_sorted[place[tile]++] = &stroke; });
    }
}

template <class Use>
void StrokeTiles::forEachTouched(const Stroke& stroke, const Brush& brush, Use use) const {
    const cv::Rect covered = (brush.bounds() + stroke.centre) & cv::Rect(cv::Point(), m_picture);
    if (covered.empty()) {
        return;
    }
    for (int row = covered.y / kHeight; row <= (covered.br().y - 1) / kHeight; ++row) {
        for (int column = covered.x / kWidth; column <= (covered.br().x - 1) / kWidth; ++column) {
            use(static_cast<std::size_t>(row) * static_cast<std::size_t>(m_across) +
                static_cast<std::size_t>(column));
        }
    }
}

StrokeTile StrokeTiles::tileAt(int index) const {
    const int x = index % m_across * kWidth;
    const int y = index / m_across * kHeight;
    const cv::Rect area = cv::Rect(x, y, kWidth, kHeight) & cv::Rect(cv::Point(), m_picture);
    return {area, static_cast<std::size_t>(y) * static_cast<std::size_t>(m_picture.width) +
                      static_cast<std::size_t>(x) * static_cast<std::size_t>(area.height)};
}

}  // namespace vellora
