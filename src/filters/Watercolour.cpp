#include "filters/Watercolour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "filters/Dabs.h"
#include "filters/Noise.h"
#include "filters/StageScale.h"

namespace vellora {
namespace {

constexpr int kSmallestTile = 384;
constexpr int kLargestRadius = 240;  // pixels
constexpr std::uint32_t kSeed = 400;

// All lengths in pixels.
struct Brush {
    double scale;  // pixels of the picture per pixel of the stage
    float water;
    int blur;      // radius of one of the two passes that average a wash
    int offset;    // from a pixel to the middles of the windows around it
    int edge;      // width of the dark rim of a wash
    float wobble;  // how far an edge strays
    [[nodiscard]] int halo() const { return 2 * blur + offset + edge + 2; }
};

Brush makeBrush(cv::Size size, float water) {
    const double scale = stageScale(size);
    const float wet = std::clamp(water, 0.0F, 3.0F);
    const auto pixels = [scale](double stagePixels) {
        return static_cast<int>(
            std::clamp(stagePixels * scale + 0.5, 1.0, static_cast<double>(kLargestRadius)));
    };
    return {scale,
            wet,
            pixels(1.9 * wet),
            pixels(4.2 * wet),
            pixels(2.6 * wet + 0.8),
            static_cast<float>(1.5 * wet * scale)};
}

void boxBlur(const cv::Mat& from, cv::Mat& to, int radius) {
    const cv::Size kernel(std::min(2 * radius + 1, 2 * from.cols - 1),
                          std::min(2 * radius + 1, 2 * from.rows - 1));
    cv::blur(from, to, kernel, {-1, -1}, cv::BORDER_REFLECT_101);
}

// A part of the picture with what surrounds it as far as the brush reaches.
struct Sheet {
    cv::Rect tile;   // what is painted
    cv::Rect whole;  // with its surroundings, inside the picture
};

// The drawing under the paint: the photo with unsteady edges.
cv::Mat wobbled(const cv::Mat& source, const cv::Rect& whole, const Brush& brush) {
    cv::Mat drawing(whole.size(), CV_8UC3);
    const auto width = static_cast<std::size_t>(whole.width);
    std::vector<float> right(width);
    std::vector<float> down(width);
    const double perPixel = 1.0 / std::max(kShortestWave, 11.0 * brush.scale);
    for (int y = 0; y < whole.height; ++y) {
        std::ranges::fill(right, 0.0F);
        std::ranges::fill(down, 0.0F);
        const NoiseRow row{whole.x * perPixel, perPixel, (whole.y + y) * perPixel};
        addFractalNoise(right, row, kSeed, 3, 0.6F);
        addFractalNoise(down, row, kSeed + 50, 3, 0.6F);
        auto* out = drawing.ptr<cv::Vec3b>(y);
        for (int x = 0; x < whole.width; ++x) {
            const auto i = static_cast<std::size_t>(x);
            const int fromX = whole.x + x + static_cast<int>(std::lround(right[i] * brush.wobble));
            const int fromY = whole.y + y + static_cast<int>(std::lround(down[i] * brush.wobble));
            out[x] = source.at<cv::Vec3b>(std::clamp(fromY, 0, source.rows - 1),
                                          std::clamp(fromX, 0, source.cols - 1));
        }
    }
    return drawing;
}

// How much a window around each pixel has a say in the wash: even windows count for all.
cv::Mat evenness(const cv::Mat& drawing, int radius) {
    cv::Mat grey;
    cv::Mat mean;
    cv::Mat squares;
    cv::cvtColor(drawing, grey, cv::COLOR_BGR2GRAY);
    grey.convertTo(mean, CV_32F);
    squares = mean.mul(mean);
    for (int pass = 0; pass < 2; ++pass) {
        boxBlur(mean, mean, radius);
        boxBlur(squares, squares, radius);
    }
    for (int y = 0; y < mean.rows; ++y) {
        const float* m = mean.ptr<float>(y);
        float* s = squares.ptr<float>(y);
        for (int x = 0; x < mean.cols; ++x) {
            const float variance = std::max(0.0F, s[x] - m[x] * m[x]) + 3.0F;
            const float weight = 1.0F / (variance * variance);
            s[x] = weight * weight;
        }
    }
    return squares;
}

// What a fine brush puts back of a detail that the wash drowned; faint ones stay away.
float drawnLine(float lost) {
    constexpr float kFaint = 12.0F;
    const float strong = std::max(0.0F, std::abs(lost) - kFaint);
    return std::copysign(0.5F * strong, lost);
}

cv::Mat makeWash(const cv::Mat& drawing, const Brush& brush) {
    const cv::Mat weights = evenness(drawing, brush.blur);
    cv::Mat means;
    boxBlur(drawing, means, brush.blur);
    boxBlur(means, means, brush.blur);
    const auto slant = static_cast<int>(std::lround(0.71 * brush.offset));
    const std::array<cv::Point, 8> windows{{{brush.offset, 0},
                                            {-brush.offset, 0},
                                            {0, brush.offset},
                                            {0, -brush.offset},
                                            {slant, slant},
                                            {-slant, slant},
                                            {slant, -slant},
                                            {-slant, -slant}}};
    cv::Mat wash(drawing.size(), CV_8UC3);
    const auto width = static_cast<std::size_t>(drawing.cols);
    std::vector<cv::Vec4f> sums(width);
    for (int y = 0; y < drawing.rows; ++y) {
        std::ranges::fill(sums, cv::Vec4f());
        for (const cv::Point& window : windows) {
            const int fromY = std::clamp(y + window.y, 0, drawing.rows - 1);
            const auto* mean = means.ptr<cv::Vec3b>(fromY);
            const auto* weight = weights.ptr<float>(fromY);
            for (int x = 0; x < drawing.cols; ++x) {
                const int from = std::clamp(x + window.x, 0, drawing.cols - 1);
                const float w = weight[from];
                cv::Vec4f& sum = sums[static_cast<std::size_t>(x)];
                sum[0] += w * mean[from][0];
                sum[1] += w * mean[from][1];
                sum[2] += w * mean[from][2];
                sum[3] += w;
            }
        }
        const auto* lines = drawing.ptr<cv::Vec3b>(y);
        auto* out = wash.ptr<cv::Vec3b>(y);
        for (int x = 0; x < drawing.cols; ++x) {
            const cv::Vec4f& sum = sums[static_cast<std::size_t>(x)];
            for (int c = 0; c < 3; ++c) {
                const float flowed = sum[c] / sum[3];
                out[x][c] = cv::saturate_cast<uchar>(flowed + drawnLine(lines[x][c] - flowed));
            }
        }
    }
    return wash;
}

// The density of pigment along a row, 1 being even: pigment gathers where the water ran together
// and in the pits of the paper.
struct Pigment {
    std::vector<float> pools;
    std::vector<float> paper;
};

void settle(Pigment& pigment, const cv::Rect& tile, int y, const Brush& brush) {
    std::ranges::fill(pigment.pools, 0.0F);
    std::ranges::fill(pigment.paper, 0.0F);
    const auto row = [&](double wave) {
        const double perPixel = 1.0 / std::max(kShortestWave, wave * brush.scale);
        return NoiseRow{tile.x * perPixel, perPixel, y * perPixel};
    };
    addFractalNoise(pigment.pools, row(70.0), kSeed + 100, 4, 0.6F);
    addFractalNoise(pigment.paper, row(3.0), kSeed + 150, 3, 0.6F);
}

// Density beyond 1 darkens and saturates; neither white paper nor black changes.
float withDensity(float colour, float density) {
    const float result = colour - (colour - colour * colour) * (density - 1.0F);
    return std::clamp(result, 0.0F, 1.0F);
}

void paintRow(const cv::Vec3b* wash, const uchar* grey, const uchar* around, const Pigment& pigment,
              const Brush& brush, int count, cv::Vec3b* out) {
    const float rim = 0.030F;
    const float flow = 0.55F + 0.45F * std::min(1.0F, brush.water);
    for (int x = 0; x < count; ++x) {
        const auto i = static_cast<std::size_t>(x);
        const auto drop = static_cast<float>(around[x] - grey[x]);
        const float gathered =
            drop > 0.0F ? std::min(1.0F, drop * rim) : std::max(-0.35F, drop * rim);
        const float density = 1.0F + 1.0F * gathered + flow * 0.75F * pigment.pools[i] +
                              0.38F * pigment.paper[i] - 0.16F;
        const float mean = static_cast<float>(wash[x][0] + 2 * wash[x][1] + wash[x][2]) * 0.25F;
        for (int c = 0; c < 3; ++c) {
            const float pure = std::clamp(mean + 1.18F * (wash[x][c] - mean), 0.0F, 255.0F);
            out[x][c] = static_cast<uchar>(withDensity(pure / 255.0F, density) * 255.0F + 0.5F);
        }
    }
}

void paintSheet(const cv::Mat& source, cv::Mat& target, const Sheet& sheet, const Brush& brush) {
    const cv::Mat wash = makeWash(wobbled(source, sheet.whole, brush), brush);
    cv::Mat grey;
    cv::Mat around;
    cv::cvtColor(wash, grey, cv::COLOR_BGR2GRAY);
    boxBlur(grey, around, brush.edge);
    boxBlur(around, around, brush.edge);
    const auto width = static_cast<std::size_t>(sheet.tile.width);
    Pigment pigment{std::vector<float>(width), std::vector<float>(width)};
    const int left = sheet.tile.x - sheet.whole.x;
    for (int y = sheet.tile.y; y < sheet.tile.br().y; ++y) {
        settle(pigment, sheet.tile, y, brush);
        const int row = y - sheet.whole.y;
        paintRow(wash.ptr<cv::Vec3b>(row) + left, grey.ptr(row) + left, around.ptr(row) + left,
                 pigment, brush, sheet.tile.width, target.ptr<cv::Vec3b>(y) + sheet.tile.x);
    }
}

}  // namespace

void paintWatercolour(const cv::Mat& source, cv::Mat& target, float water) {
    constexpr int kNarrow = 8;  // rows so short that their overhead would count
    if (source.cols < kNarrow && source.rows > source.cols) {
        cv::Mat lying = source.t();
        paintWatercolour(source.t(), lying, water);
        cv::transpose(lying, target);
        return;
    }
    const Brush brush = makeBrush(source.size(), water);
    const int halo = brush.halo() + brush.edge;
    const cv::Rect picture({0, 0}, source.size());
    forEachTile(source.size(), std::max(kSmallestTile, 8 * halo), [&](const cv::Rect& tile) {
        const cv::Rect whole(tile.x - halo, tile.y - halo, tile.width + 2 * halo,
                             tile.height + 2 * halo);
        paintSheet(source, target, {tile, whole & picture}, brush);
    });
}

}  // namespace vellora
