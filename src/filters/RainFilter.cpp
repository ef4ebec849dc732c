#include "filters/RainFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "base/Random.h"
#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 1, 15, label::kRainMinimum},
    {100, 1, 30, label::kRainMaximum},
    {10000, 1, 5000, label::kRainDrops},
}};

// The slant of a streak: one step moves it by (-kSlant, 1) / kStretch.
constexpr double kSlant = 0.2F;
const double kStretch = std::sqrt(1.04F);

using Levels = std::array<uchar, 256>;

/// What a value becomes under one step of a streak.
Levels litLevels() {
    Levels levels;
    for (std::size_t value = 0; value < levels.size(); ++value) {
        levels[value] = static_cast<uchar>(255.0 - (255.0 - static_cast<double>(value)) / 1.1);
    }
    return levels;
}

/// The number of drops to draw. A file may ask for any number: far more than the slider reaches
/// are drawn, but not more than a fixed number of steps for each pixel.
std::int64_t boundedDrops(std::int32_t asked, std::int64_t longest, const cv::Mat& picture) {
    constexpr std::int64_t kAlways = 100'000;
    constexpr std::int64_t kStepsPerPixel = 32;
    const std::int64_t steps = 2 * std::clamp<std::int64_t>(longest, 16, 16 + picture.rows);
    const auto pixels = static_cast<std::int64_t>(picture.total());
    return std::min<std::int64_t>(asked, std::max(kAlways, kStepsPerPixel * pixels / steps));
}

/// Lightens the streak of 2 * `length` steps through (x0, y0).
void drawStreak(cv::Mat& picture, const Levels& levels, int x0, int y0, std::int64_t length) {
    // Steps whose row may lie inside the picture, with one to spare at either end.
    const auto upper = static_cast<std::int64_t>(std::floor((-1.0 - y0) * kStretch)) - 1;
    const auto lower = static_cast<std::int64_t>(std::ceil((picture.rows - y0) * kStretch)) + 1;
    // The same for columns: a streak leaves a narrow picture long before a high one.
    const auto left =
        static_cast<std::int64_t>(std::floor((x0 - picture.cols) * kStretch / kSlant)) - 1;
    const auto right = static_cast<std::int64_t>(std::ceil((x0 + 1.0) * kStretch / kSlant)) + 1;
    const std::int64_t end = std::min({length, lower + 1, right + 1});
    for (std::int64_t step = std::max({-length, upper, left}); step < end; ++step) {
        const auto t = static_cast<double>(step);
        const auto x = static_cast<std::int64_t>(x0 - kSlant * t / kStretch);
        const auto y = static_cast<std::int64_t>(y0 + t / kStretch);
        if (x >= 0 && x < picture.cols && y >= 0 && y < picture.rows) {
            uchar* pixel = picture.ptr(static_cast<int>(y), static_cast<int>(x));
            for (int c = 0; c < 3; ++c) {
                pixel[c] = levels[pixel[c]];
            }
        }
    }
}

}  // namespace

CRainFilter::CRainFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {15, 730, 65}) {}

bool CRainFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    const double minimum = static_cast<float>(factor(0));
    const double maximum = static_cast<float>(factor(1));
    const double span = maximum - minimum;
    const Levels levels = litLevels();
    const auto longest = static_cast<std::int64_t>(std::max(minimum, maximum));
    const std::int64_t drops = boundedDrops(factor(2), longest, picture);
    RandomRun random;
    for (std::int64_t drop = 0; drop < drops; ++drop) {
        const int x = random.below(picture.cols);
        const int y = random.below(picture.rows);
        const auto length = static_cast<std::int64_t>(
            static_cast<double>(random.next()) / kRandMax * span + minimum);
        drawStreak(picture, levels, x, y, length);
    }
    return true;
}

const char16_t* CRainFilter::GetName() const {
    return u"Rain";
}

}  // namespace vellora
