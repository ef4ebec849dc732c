#include "filters/SnowFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include <opencv2/core/hal/intrin.hpp>

#include "base/Random.h"
#include "filters/ImagePreflight.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 1, 300, label::kBigFlakes},
    {1000, 1, 150, label::kMiddleFlakes},
    {1000, 1, 600, label::kSmallFlakes},
}};

/// The sharpness of big, middle and small flakes.
constexpr std::array<double, 3> kSharpness{5.0, 10.0, 50.0};

int flakeRadius(cv::Size picture) {
    return static_cast<int>(static_cast<std::int64_t>(std::min(picture.width, picture.height)) *
                            25 / 767);
}

/// The share of its distance to white by which a flake moves a pixel.
float flakeWeight(int dx, int dy, int radius, float softness) {
    const auto squared = static_cast<long double>(dx) * dx + static_cast<long double>(dy) * dy;
    const auto radiusSquared = static_cast<long double>(radius) * radius;
    if (squared > radiusSquared) {
        return 0.0F;
    }
    return static_cast<float>(std::exp(-squared / radiusSquared / softness / softness));
}

/// The weight as a 16-bit factor w16 with (w16 * d) >> 16 == trunc(weight * d) for every byte d.
///
/// There always is one: the products change at fractions whose denominators are at most 255, two
/// of which lie more than 2^-16 apart, and the one just below the weight, rounded up, is it.
std::uint16_t wholeWeight(float weight) {
    std::uint32_t whole = 0;
    for (std::uint32_t distance = 1; distance < 256; ++distance) {
        const auto moved =
            static_cast<std::uint32_t>(static_cast<double>(weight) * static_cast<double>(distance));
        if (moved > 0) {
            whole = std::max(whole, ((moved << 16U) + distance - 1) / distance);
        }
    }
    return static_cast<std::uint16_t>(whole);
}

/// Moves values towards white.
void lighten(uchar* values, const std::uint16_t* weights, int count) {
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        const cv::v_uint8x16 own = cv::v_load(values + i);
        cv::v_uint16x8 low;
        cv::v_uint16x8 high;
        cv::v_expand(~own, low, high);
        cv::v_store(values + i, own + cv::v_pack(cv::v_mul_hi(low, cv::v_load(weights + i)),
                                                 cv::v_mul_hi(high, cv::v_load(weights + i + 8))));
    }
    for (; i < count; ++i) {
        const unsigned distance = 255U - values[i];
        values[i] = static_cast<uchar>(values[i] + (weights[i] * distance >> 16U));
    }
}

/// The weights of one class of flakes.
class Flake {
public:
    Flake(int radius, float softness) : m_radius(radius) {
        const cv::Mat1w quadrant = quadrantWeights(radius, softness);
        for (int dy = -radius; dy <= radius; ++dy) {
            const std::uint16_t* weights = quadrant.ptr<std::uint16_t>(std::abs(dy));
            // Weights fall with the distance: a row ends where they no longer move any value.
            int half = -1;
            while (half < radius && weights[half + 1] > 0) {
                ++half;
            }
            Row row{half, {}};
            for (int dx = -half; dx <= half; ++dx) {
                row.weights.insert(row.weights.end(), 3, weights[std::abs(dx)]);
            }
            m_rows.push_back(std::move(row));
        }
    }

    void fallOn(cv::Mat& picture, cv::Point centre) const {
        const int first = std::max(centre.y - m_radius, 0);
        const int last = std::min(centre.y + m_radius, picture.rows - 1);
        for (int y = first; y <= last; ++y) {
            const Row& row = m_rows[static_cast<std::size_t>(y - centre.y + m_radius)];
            if (row.half < 0) {
                continue;
            }
            const int left = centre.x - row.half;
            const int begin = std::max(left, 0);
            const int end = std::min(centre.x + row.half + 1, picture.cols);
            lighten(picture.ptr(y, begin), row.weights.data() + 3 * (begin - left),
                    3 * (end - begin));
        }
        picture.at<cv::Vec3b>(centre) = cv::Vec3b::all(255);
    }

private:
    struct Row {
        int half;  // columns to either side; -1 when the row moves nothing
        std::vector<std::uint16_t> weights;
    };

    /// Weights for dx and dy of 0 or more, without the centre's: a weight of 1 has no 16-bit form.
    static cv::Mat1w quadrantWeights(int radius, float softness) {
        cv::Mat1w weights(radius + 1, radius + 1);
        for (int dy = 0; dy <= radius; ++dy) {
            for (int dx = 0; dx <= dy; ++dx) {
                const bool centre = dy == 0;
                weights(dy, dx) =
                    centre ? std::uint16_t{1} : wholeWeight(flakeWeight(dx, dy, radius, softness));
                weights(dx, dy) = weights(dy, dx);
            }
        }
        return weights;
    }

    int m_radius;
    std::vector<Row> m_rows;
};

/// The number of flakes to draw. A file may ask for any number: far more than the slider reaches
/// are drawn, but not more than a fixed number for each pixel.
std::int64_t boundedFlakes(std::int32_t asked, int radius, const cv::Mat& picture) {
    constexpr std::int64_t kAlways = 15'000;
    constexpr std::int64_t kTouchesPerPixel = 64;
    const std::int64_t side = 2 * static_cast<std::int64_t>(radius) + 1;
    const auto pixels = static_cast<std::int64_t>(picture.total());
    return std::min<std::int64_t>(asked,
                                  std::max(kAlways, kTouchesPerPixel * pixels / (side * side)));
}

}  // namespace

CSnowFilter::CSnowFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {300, 40, 20}) {}

bool CSnowFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    seedFromClock();
    const int radius = flakeRadius(picture.size());
    return runsInMemory([&] {
        std::vector<Flake> shapes;
        for (const auto sharpness : kSharpness) {
            shapes.emplace_back(radius, static_cast<float>(1.0 / std::sqrt(sharpness)));
        }
        for (std::size_t pass = 0; pass < shapes.size(); ++pass) {
            const std::int64_t flakes = boundedFlakes(factor(pass), radius, picture);
            RandomRun random;
            for (std::int64_t i = 0; i < flakes; ++i) {
                const int x = random.below(picture.cols);
                const int y = random.below(picture.rows);
                shapes[pass].fallOn(picture, {x, y});
            }
        }
    });
}

const char16_t* CSnowFilter::GetName() const {
    return u"Snow";
}

}  // namespace vellora
