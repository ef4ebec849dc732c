#include "filters/HaloBands.h"

#include <algorithm>
#include <cstdint>

namespace vellora {

HaloBands::HaloBands(cv::Mat& picture, int above, int below, int count) : m_picture(picture) {
    const int bands = std::clamp(count, 1, picture.rows);
    const auto boundary = [&](int band) {
        return static_cast<int>(static_cast<std::int64_t>(picture.rows) * band / bands);
    };
    for (int i = 0; i < bands; ++i) {
        const int first = boundary(i);
        const int last = boundary(i + 1);
        const int start = std::max(first - above, 0);
        const int end = static_cast<int>(
            std::min<std::int64_t>(static_cast<std::int64_t>(last) + below, picture.rows));
        m_bands.push_back({first, last, picture.rowRange(start, first).clone(),
                           picture.rowRange(last, end).clone()});
    }
}

void HaloBands::copyOut(const Band& band, cv::Mat& rows) const {
    const int own = band.last - band.first;
    const int above = band.above.rows;
    rows.create(above + own + band.below.rows, m_picture.cols, m_picture.type());
    const auto place = [&rows](const cv::Mat& source, int first) {
        if (!source.empty()) {
            source.copyTo(rows.rowRange(first, first + source.rows));
        }
    };
    place(band.above, 0);
    place(m_picture.rowRange(band.first, band.last), above);
    place(band.below, above + own);
}

}  // namespace vellora
