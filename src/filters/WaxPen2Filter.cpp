#include "filters/WaxPen2Filter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "filters/Dabs.h"
#include "filters/Noise.h"
#include "filters/PaintFromCopy.h"
#include "filters/PastelStroke.h"
#include "filters/StageScale.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {80, 1, 25, label::kStrokeSize},
    {100, 1, 50, label::kPenHardness},
    {40, 0, 30, label::kGrain},
}};

constexpr int kTileEdge = 256;
constexpr int kLargestStroke = 40;
constexpr float kThinnest = 0.75F;  // half a stroke, in pixels
constexpr std::uint32_t kPaperSeed = 900;
constexpr double kPaperWave = 2.3;     // stage pixels
constexpr float kHatchAngle = -0.96F;  // of a right-handed draughtsman, in radians
constexpr int kEdgeOfColour = 66;      // a stroke ends where the sum of channels changes more
constexpr int kNoticeable = 24;

// A pass over the picture: widths and pitch relative to the stroke size.
struct Pass {
    float width;
    float lengthInWidths;
    float pitchInWidths;
    bool onlyInDetail;
};

constexpr std::array<Pass, 3> kPasses{{
    {1.8F, 4.0F, 2.2F, false},
    {1.0F, 4.5F, 2.0F, false},
    {0.5F, 4.5F, 1.7F, true},
}};

struct PreparedPass {
    Pass kind;
    DabGrid grid;
    cv::Mat colours;
    cv::Mat directions;  // unit vectors of twice the angle of the stroke
    float halfWidth;     // in pixels
};

// Strokes hatch at one angle, but follow edges where there are any: the structure tensor of the
// cells tells where the picture changes least.
cv::Mat strokeDirections(const cv::Mat& colours) {
    cv::Mat grey;
    cv::Mat gx;
    cv::Mat gy;
    cv::cvtColor(colours, grey, cv::COLOR_BGR2GRAY);
    cv::Sobel(grey, gx, CV_32F, 1, 0, 3, 0.25);
    cv::Sobel(grey, gy, CV_32F, 0, 1, 3, 0.25);
    cv::Mat directions(colours.size(), CV_32FC2);
    for (int y = 0; y < colours.rows; ++y) {
        for (int x = 0; x < colours.cols; ++x) {
            const float dx = gx.at<float>(y, x);
            const float dy = gy.at<float>(y, x);
            directions.at<cv::Vec2f>(y, x) = {dy * dy - dx * dx, -2.0F * dx * dy};
        }
    }
    cv::blur(directions, directions, {5, 5});
    constexpr float kFirmness = 220.0F;  // of the hatching against edges
    const cv::Vec2f hatch(std::cos(2.0F * kHatchAngle), std::sin(2.0F * kHatchAngle));
    for (auto it = directions.begin<cv::Vec2f>(); it != directions.end<cv::Vec2f>(); ++it) {
        *it += hatch * kFirmness;
        *it /= std::max(1e-3F, static_cast<float>(cv::norm(*it)));
    }
    return directions;
}

int difference(const cv::Vec3b& a, const cv::Vec3b& b) {
    return std::abs(a[0] - b[0]) + std::abs(a[1] - b[1]) + std::abs(a[2] - b[2]);
}

// How far a stroke may run from a point before the colour changes, at most `longest` pixels.
float clearLength(const PreparedPass& pass, cv::Point2f from, cv::Point2f along, float longest,
                  const cv::Vec3b& colour) {
    const auto step = static_cast<float>(std::max(pass.grid.cellWidth, pass.grid.cellHeight));
    float length = std::min(longest, 0.8F * step);
    while (length < longest) {
        const cv::Point2f at = from + along * (length + 0.5F * step);
        const auto& there = cellValue<cv::Vec3b>(
            pass.colours, static_cast<int>(std::floor(at.x / pass.grid.cellWidth)),
            static_cast<int>(std::floor(at.y / pass.grid.cellHeight)));
        if (difference(there, colour) > kEdgeOfColour) {
            break;
        }
        length = std::min(longest, length + step);
    }
    return length;
}

cv::Vec3f stickColour(const cv::Vec3b& local, CellRandom& random) {
    const cv::Vec3f colour(local);
    const float grey = (colour[0] + 2.0F * colour[1] + colour[2]) * 0.25F;
    const float lightness = random.between(0.86F, 1.14F);
    cv::Vec3f result;
    for (int c = 0; c < 3; ++c) {
        const float pure = grey + 1.22F * (colour[c] - grey);
        result[c] = std::clamp(pure * lightness + random.between(-5.0F, 5.0F), 0.0F, 255.0F);
    }
    return result;
}

PastelStroke makeStroke(const PreparedPass& pass, int column, int row, float hardness) {
    CellRandom random(column, row, pass.grid.seed + 1);
    const double inColumn = column + 0.5 + random.between(-0.45F, 0.45F);
    const double inRow = row + 0.5 + random.between(-0.45F, 0.45F);
    const int cellX = static_cast<int>(std::floor(inColumn));
    const int cellY = static_cast<int>(std::floor(inRow));
    const auto& local = cellValue<cv::Vec3b>(pass.colours, cellX, cellY);
    const auto& twice = cellValue<cv::Vec2f>(pass.directions, cellX, cellY);
    const float angle = 0.5F * std::atan2(twice[1], twice[0]) + random.between(-0.16F, 0.16F);
    PastelStroke stroke{};
    stroke.middle = {static_cast<float>(inColumn * pass.grid.cellWidth),
                     static_cast<float>(inRow * pass.grid.cellHeight)};
    stroke.along = {std::cos(angle), std::sin(angle)};
    stroke.halfWidth = pass.halfWidth * random.between(0.75F, 1.2F);
    const float longest = pass.halfWidth * pass.kind.lengthInWidths * random.between(0.7F, 1.15F);
    stroke.forward = clearLength(pass, stroke.middle, stroke.along, longest, local);
    stroke.backward = clearLength(pass, stroke.middle, -stroke.along, longest, local);
    stroke.colour = stickColour(local, random);
    const float crumbs = 0.22F + 0.35F * hardness;
    for (float& streak : stroke.streaks) {
        streak = crumbs * (random.next() - 0.5F);
    }
    return stroke;
}

bool hasDetail(const PreparedPass& pass, const PreparedPass& coarser, int column, int row) {
    const auto x = static_cast<int>((column + 0.5) * pass.grid.cellWidth / coarser.grid.cellWidth);
    const auto y = static_cast<int>((row + 0.5) * pass.grid.cellHeight / coarser.grid.cellHeight);
    return difference(cellValue<cv::Vec3b>(pass.colours, column, row),
                      cellValue<cv::Vec3b>(coarser.colours, x, y)) > kNoticeable;
}

// Tinted paper: the tone of the surroundings, a little warmer. It is what shows in the grain.
cv::Mat paperTint(const cv::Mat& colours) {
    cv::Mat tint;
    cv::resize(colours, tint, {std::min(32, colours.cols), std::min(24, colours.rows)}, 0, 0,
               cv::INTER_AREA);
    const cv::Scalar mean = cv::mean(tint);
    for (auto it = tint.begin<cv::Vec3b>(); it != tint.end<cv::Vec3b>(); ++it) {
        constexpr float kWarm[3] = {0.92F, 1.0F, 1.06F};
        for (int c = 0; c < 3; ++c) {
            const double tone = 0.75 * (*it)[c] + 0.25 * mean[c];
            (*it)[c] = cv::saturate_cast<uchar>(tone * kWarm[c]);
        }
    }
    cv::resize(tint, tint, colours.size(), 0, 0, cv::INTER_LINEAR);
    return tint;
}

void layPaper(cv::Mat& target, const cv::Rect& tile, const DabGrid& grid, const cv::Mat& tint) {
    for (int y = tile.y; y < tile.br().y; ++y) {
        const int row = static_cast<int>((y + 0.5) / grid.cellHeight);
        auto* out = target.ptr<cv::Vec3b>(y);
        for (int x = tile.x; x < tile.br().x; ++x) {
            out[x] = cellValue<cv::Vec3b>(tint, static_cast<int>((x + 0.5) / grid.cellWidth), row);
        }
    }
}

std::vector<float> paperHeights(const cv::Rect& tile, double scale) {
    std::vector<float> heights(static_cast<std::size_t>(tile.area()));
    const double perPixel = 1.0 / std::max(kShortestWave, kPaperWave * scale);
    for (int y = 0; y < tile.height; ++y) {
        const auto width = static_cast<std::size_t>(tile.width);
        addFractalNoise({heights.data() + static_cast<std::size_t>(y) * width, width},
                        {tile.x * perPixel, perPixel, (tile.y + y) * perPixel}, kPaperSeed, 3,
                        0.6F);
    }
    return heights;
}

std::vector<PreparedPass> preparePasses(const cv::Mat& source, float halfWidth) {
    std::vector<PreparedPass> passes;
    for (const Pass& kind : kPasses) {
        const auto seed = static_cast<std::uint32_t>(300 + 10 * passes.size());
        const float width = halfWidth * kind.width;
        if (kind.onlyInDetail && width < kThinnest) {
            break;
        }
        const DabGrid grid =
            makeDabGrid(source.size(), static_cast<double>(width) * kind.pitchInWidths, seed);
        const cv::Mat colours = cellColours(source, grid);
        passes.push_back(
            {kind, grid, colours, strokeDirections(colours), std::max(kThinnest, width)});
    }
    return passes;
}

// Light from the side: what sticks out of the paper is lighter than what lies in its pits.
void lightPaper(cv::Mat& target, const cv::Rect& tile, const std::vector<float>& paper, int grain) {
    const float relief = 0.011F * static_cast<float>(grain);
    const float* height = paper.data();
    for (int y = tile.y; y < tile.br().y; ++y) {
        uchar* out = target.ptr(y) + 3 * std::ptrdiff_t{tile.x};
        for (int x = 0; x < tile.width; ++x, out += 3, ++height) {
            const float light = 1.0F + relief * *height;
            for (int c = 0; c < 3; ++c) {
                out[c] = static_cast<uchar>(std::clamp(out[c] * light + 0.5F, 0.0F, 255.0F));
            }
        }
    }
}

// Painterly rendering in passes from broad to fine strokes (Haeberli, "Paint by numbers", 1990;
// Hertzmann, 1998), each stroke oriented along the edges and ended by them (Litwinowicz, 1997),
// rubbed onto the height field of a rough paper.
void rubPastels(const cv::Mat& source, cv::Mat& target, int size, float hardness, int grain) {
    const double scale = stageScale(source.size());
    const auto halfWidth = static_cast<float>((0.85 + 0.26 * size) * scale);
    const PastelTouch touch{1.3F + 6.0F * hardness, 0.10F * static_cast<float>(grain)};
    const std::vector<PreparedPass> passes = preparePasses(source, halfWidth);
    const cv::Mat tint = paperTint(passes[0].colours);
    forEachTile(source.size(), kTileEdge, [&](const cv::Rect& tile) {
        const std::vector<float> paper = paperHeights(tile, scale);
        layPaper(target, tile, passes[0].grid, tint);
        for (std::size_t k = 0; k < passes.size(); ++k) {
            const PreparedPass& pass = passes[k];
            const double reach = pass.halfWidth * (pass.kind.lengthInWidths * 1.15 + 1.2) + 1.0;
            forEachDab(pass.grid, tile, reach, [&](int column, int row) {
                if (!pass.kind.onlyInDetail || hasDetail(pass, passes[k - 1], column, row)) {
                    rubPastel(target, tile, paper, makeStroke(pass, column, row, hardness), touch);
                }
            });
        }
        lightPaper(target, tile, paper, grain);
    });
}

}  // namespace

CWaxPenFilter2::CWaxPenFilter2() : FactorFilter(kParams, FilterCategory::ArtEffect, {25, 30, 15}) {}

bool CWaxPenFilter2::Apply(IplImage** image) {
    // Factors come from files too; beyond these bounds nothing more would be seen.
    const int size = std::clamp(factor(0) / 5, 0, kLargestStroke);
    const float hardness = static_cast<float>(std::clamp(factor(1), 0, 200)) / 100.0F;
    const int grain = std::clamp(factor(2), 0, 80);
    return paintFromCopy(image, [&](const cv::Mat& source, cv::Mat& target) {
        rubPastels(source, target, size, hardness, grain);
    });
}

const char16_t* CWaxPenFilter2::GetName() const {
    return u"Hard Pastels";
}

}  // namespace vellora
