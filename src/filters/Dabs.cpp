#include "filters/Dabs.h"

#include <opencv2/imgproc.hpp>

namespace vellora {

DabGrid makeDabGrid(cv::Size picture, double pitch, std::uint32_t seed) {
    constexpr double kFinest = 1.5;
    const double edge = std::max(pitch, kFinest);
    const int columns = std::max(1, static_cast<int>(std::lround(picture.width / edge)));
    const int rows = std::max(1, static_cast<int>(std::lround(picture.height / edge)));
    return {columns, rows, static_cast<double>(picture.width) / columns,
            static_cast<double>(picture.height) / rows, seed};
}

cv::Mat cellColours(const cv::Mat& picture, const DabGrid& grid) {
    cv::Mat colours;
    cv::resize(picture, colours, {grid.columns, grid.rows}, 0, 0, cv::INTER_AREA);
    return colours;
}

}  // namespace vellora
