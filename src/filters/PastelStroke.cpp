#include "filters/PastelStroke.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

constexpr float kMostCover = 235.0F;  // of 256
constexpr float kThreshold = 0.28F;   // pressure that leaves no mark on even paper

struct Range {
    float from;
    float to;
};

// The x for which low <= slope * x + start <= high, within `range`.
Range narrowed(Range range, float slope, float start, float low, float high) {
    if (std::abs(slope) < 1e-6F) {
        return start >= low && start <= high ? range : Range{1.0F, 0.0F};
    }
    const float a = (low - start) / slope;
    const float b = (high - start) / slope;
    return {std::max(range.from, std::min(a, b)), std::min(range.to, std::max(a, b))};
}

void rubRow(uchar* out, const float* paper, int count, float u, float v, const PastelStroke& stroke,
            const PastelTouch& touch) {
    const float perWidth = 1.0F / stroke.halfWidth;
    const std::array<int, 3> colour{static_cast<int>(stroke.colour[0]),
                                    static_cast<int>(stroke.colour[1]),
                                    static_cast<int>(stroke.colour[2])};
    const float sharpness = touch.sharpness * 256.0F;
    for (int i = 0; i < count; ++i, out += 3) {
        const float across = v * perWidth;
        const float end = std::min(stroke.forward - u, u + stroke.backward) * perWidth;
        const auto streak = static_cast<std::size_t>(std::clamp(across * 8.0F + 8.0F, 0.0F, 15.0F));
        const float pressure =
            std::min(1.0F - across * across, 0.2F + end) + stroke.streaks[streak];
        u += stroke.along.x;
        v -= stroke.along.y;
        const float deposit = (pressure + touch.tooth * paper[i] - kThreshold) * sharpness;
        if (deposit <= 0.0F) {
            continue;
        }
        const int cover = static_cast<int>(std::min(deposit, kMostCover));
        for (std::size_t c = 0; c < 3; ++c) {
            const int below = out[c];
            out[c] = static_cast<uchar>(below + (((colour[c] - below) * cover + 128) >> 8));
        }
    }
}

}  // namespace

void rubPastel(cv::Mat& picture, const cv::Rect& tile, std::span<const float> paper,
               const PastelStroke& stroke, const PastelTouch& touch) {
    const float high = std::max(std::abs(stroke.forward * stroke.along.y),
                                std::abs(stroke.backward * stroke.along.y)) +
                       std::abs(stroke.halfWidth * stroke.along.x);
    const int top = std::max(tile.y, static_cast<int>(std::ceil(stroke.middle.y - high)));
    const int bottom =
        std::min(tile.br().y - 1, static_cast<int>(std::floor(stroke.middle.y + high)));
    for (int y = top; y <= bottom; ++y) {
        const float dy = static_cast<float>(y) - stroke.middle.y;
        Range range{static_cast<float>(tile.x) - stroke.middle.x,
                    static_cast<float>(tile.br().x - 1) - stroke.middle.x};
        range =
            narrowed(range, stroke.along.x, dy * stroke.along.y, -stroke.backward, stroke.forward);
        range = narrowed(range, -stroke.along.y, dy * stroke.along.x, -stroke.halfWidth,
                         stroke.halfWidth);
        const int left =
            std::max(tile.x, static_cast<int>(std::ceil(stroke.middle.x + range.from)));
        const int right =
            std::min(tile.br().x - 1, static_cast<int>(std::floor(stroke.middle.x + range.to)));
        if (left > right) {
            continue;
        }
        const float dx = static_cast<float>(left) - stroke.middle.x;
        const auto inTile = static_cast<std::size_t>((y - tile.y) * tile.width + (left - tile.x));
        rubRow(picture.ptr(y) + 3 * std::ptrdiff_t{left}, paper.data() + inTile, right - left + 1,
               dx * stroke.along.x + dy * stroke.along.y, dy * stroke.along.x - dx * stroke.along.y,
               stroke, touch);
    }
}

}  // namespace vellora
