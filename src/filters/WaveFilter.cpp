#include "filters/WaveFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "filters/PaintFromCopy.h"
#include "filters/StageScale.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {1000, 400, 730, label::kWaveLength},
    {100, 0, 20, label::kWaveHeight},
    {100, 0, 75, label::kRefraction},
}};

// The shares of the smaller waves, and how strongly the slopes shine.
constexpr float kCrossSwell = 0.25F;
constexpr float kChop = 0.25F;
constexpr float kShine = 1.0F;

// Columns that are worked on at once: their tables stay in the cache.
constexpr int kBlockColumns = 4096;
constexpr float kFarthest = 1e6F;  // pixels
constexpr std::size_t kWaves = 6;

struct Wave {
    double kx;     // phase per column
    double ky;     // phase per unit of depth
    double start;  // phase at the corner
    float slopeX;  // largest slope to the right
    float slopeY;  // largest slope downward
};

struct Water {
    std::array<Wave, kWaves> waves;
    float displacement;  // pixels per unit of slope
    float shade;         // change of brightness per unit of slope
    double heightInPixels;
};

// The surface is seen at an angle: crests crowd toward the top.
double foreshortened(double v) {
    return 1.7 * v - 0.45 * v * v;
}

Water makeWater(cv::Size size, float length, float height, float refraction, float cross,
                float chop, float shine) {
    struct Kind {
        double dx, dy, lengthRatio;
        float share;
    };
    const std::array<Kind, kWaves> kinds{{
        {0.10, 0.995, 1.00, 1.0F - cross - chop},
        {-0.31, 0.95, 0.62, 0.7F * (1.0F - cross - chop)},
        {0.79, 0.61, 1.37, cross},
        {0.47, 0.88, 0.83, cross},
        {-0.42, 0.91, 0.37, 0.6F * chop},
        {0.24, 0.97, 0.27, 0.4F * chop},
    }};
    const double edge = kStageHeight * stageScale(size);
    Water water{};
    water.heightInPixels = size.height;
    for (std::size_t k = 0; k < kWaves; ++k) {
        const Kind& kind = kinds[k];
        const double perUnit = 2.0 * std::numbers::pi / (length * kind.lengthRatio);
        // Shorter waves are as steep as long ones of the same share.
        water.waves[k] = {perUnit * kind.dx / edge, perUnit * kind.dy * size.height / edge,
                          1.7 * static_cast<double>(k * k),
                          kind.share * static_cast<float>(kind.dx),
                          kind.share * static_cast<float>(kind.dy)};
    }
    // A ray bends with the slope, but never so far that the picture folds over itself much.
    const float steepness = 2.0F * std::numbers::pi_v<float> * height / length;
    const float bent = std::min(0.008F * steepness, 0.12F * length) * refraction;
    water.displacement = std::min(kFarthest, bent * static_cast<float>(edge));
    water.shade = 0.25F * shine * std::min(1.0F, 0.35F * steepness);
    return water;
}

// sin(a + b) = sin a cos b + cos a sin b: a row costs two products per wave and pixel.
class PhaseTable {
public:
    PhaseTable(const Water& water, int firstColumn, int columns) {
        for (std::size_t k = 0; k < kWaves; ++k) {
            m_sin[k].resize(static_cast<std::size_t>(columns));
            m_cos[k].resize(static_cast<std::size_t>(columns));
            for (int x = 0; x < columns; ++x) {
                const double phase = water.waves[k].kx * (firstColumn + x);
                m_sin[k][static_cast<std::size_t>(x)] = static_cast<float>(std::sin(phase));
                m_cos[k][static_cast<std::size_t>(x)] = static_cast<float>(std::cos(phase));
            }
        }
    }

    void addSlopes(const Water& water, double v, std::vector<float>& slopeX,
                   std::vector<float>& slopeY) const {
        std::ranges::fill(slopeX, 0.0F);
        std::ranges::fill(slopeY, 0.0F);
        for (std::size_t k = 0; k < kWaves; ++k) {
            const Wave& wave = water.waves[k];
            const double phase = wave.ky * foreshortened(v) + wave.start;
            const auto sine = static_cast<float>(std::sin(phase));
            const auto cosine = static_cast<float>(std::cos(phase));
            const float* sinX = m_sin[k].data();
            const float* cosX = m_cos[k].data();
            for (std::size_t x = 0; x < slopeX.size(); ++x) {
                const float slope = sinX[x] * cosine + cosX[x] * sine;
                slopeX[x] += wave.slopeX * slope;
                slopeY[x] += wave.slopeY * slope;
            }
        }
    }

private:
    std::array<std::vector<float>, kWaves> m_sin;
    std::array<std::vector<float>, kWaves> m_cos;
};

int mirrored(int position, int extent) {
    if (extent == 1) {
        return 0;
    }
    const int period = 2 * extent - 2;
    position %= period;
    position = position < 0 ? position + period : position;
    return position < extent ? position : period - position;
}

// Rounds down to 1/256; a call to floor would cost more than the rest of the pixel.
int fixedPoint(float value) {
    const float scaled = value * 256.0F;
    return static_cast<int>(scaled) - (scaled < 0.0F ? 1 : 0);
}

// What the surface shows at one pixel: the source at an offset in 1/256 pixels, made lighter or
// darker by the slope.
struct View {
    int offsetX;
    int offsetY;
    int gain;   // of 256
    int shine;  // added to each channel
};

View viewThrough(const Water& water, float slopeX, float slopeY) {
    const float lit = -(0.35F * slopeX + 0.94F * slopeY);
    const float gain = 1.0F + water.shade * lit;
    const float crest = std::max(0.0F, lit - 0.55F);
    return {fixedPoint(slopeX * water.displacement), fixedPoint(slopeY * water.displacement),
            static_cast<int>(gain * 256.0F),
            static_cast<int>(crest * crest * water.shade * 300.0F)};
}

template <bool Inside>
void showPixel(const cv::Mat& source, int x, int y, const View& view, uchar* out) {
    int x0 = x + (view.offsetX >> 8);
    int y0 = y + (view.offsetY >> 8);
    int x1 = x0 + 1;
    int y1 = y0 + 1;
    if constexpr (!Inside) {
        x0 = mirrored(x0, source.cols);
        x1 = mirrored(x1, source.cols);
        y0 = mirrored(y0, source.rows);
        y1 = mirrored(y1, source.rows);
    }
    const int fx = view.offsetX & 255;
    const int fy = view.offsetY & 255;
    const uchar* upper = source.ptr(y0);
    const uchar* lower = source.ptr(y1);
    for (int c = 0; c < 3; ++c) {
        const int top = upper[3 * x0 + c] * (256 - fx) + upper[3 * x1 + c] * fx;
        const int bottom = lower[3 * x0 + c] * (256 - fx) + lower[3 * x1 + c] * fx;
        const int seen = (top * (256 - fy) + bottom * fy) >> 8;
        out[c] = static_cast<uchar>(std::clamp(((seen * view.gain) >> 16) + view.shine, 0, 255));
    }
}

struct RowSlopes {
    std::vector<float> x;
    std::vector<float> y;
};

void showRow(const cv::Mat& source, const Water& water, const RowSlopes& slopes, int firstColumn,
             int y, uchar* out) {
    const int columns = static_cast<int>(slopes.x.size());
    // No slope sum passes 2, the sum of the shares.
    const int reach = static_cast<int>(2.0F * water.displacement) + 2;
    const bool rowInside = y >= reach && y < source.rows - reach;
    const int insideFrom = rowInside ? std::clamp(reach - firstColumn, 0, columns) : columns;
    const int insideTo =
        rowInside ? std::clamp(source.cols - reach - firstColumn, insideFrom, columns) : columns;
    const auto show = [&]<bool Inside>(int from, int to) {
        for (int x = from; x < to; ++x) {
            const auto i = static_cast<std::size_t>(x);
            const View view = viewThrough(water, slopes.x[i], slopes.y[i]);
            showPixel<Inside>(source, firstColumn + x, y, view, out + 3 * x);
        }
    };
    show.operator()<false>(0, insideFrom);
    show.operator()<true>(insideFrom, insideTo);
    show.operator()<false>(insideTo, columns);
}

// The picture under a rippling surface: a sum of sine waves of several directions and lengths
// (Finch, "Effective water simulation from physical models", 2004) whose slopes bend the view and
// catch the light. Lengths are in heights of the 4:3 frame around it.
void ripple(const cv::Mat& source, cv::Mat& target, const Water& water) {
    for (int first = 0; first < source.cols; first += kBlockColumns) {
        const int columns = std::min(kBlockColumns, source.cols - first);
        const PhaseTable table(water, first, columns);
        cv::parallel_for_(cv::Range(0, source.rows), [&](const cv::Range& rows) {
            const auto count = static_cast<std::size_t>(columns);
            RowSlopes slopes{std::vector<float>(count), std::vector<float>(count)};
            for (int y = rows.start; y < rows.end; ++y) {
                table.addSlopes(water, (y + 0.5) / water.heightInPixels, slopes.x, slopes.y);
                showRow(source, water, slopes, first, y, target.ptr(y) + 3 * std::ptrdiff_t{first});
            }
        });
    }
}

}  // namespace

CWaveFilter::CWaveFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {730, 65, 70}) {}

bool CWaveFilter::Apply(IplImage** image) {
    // Factors come from files too; beyond these bounds nothing more would be seen.
    const auto bounded = [this](std::size_t k, int low, int high) {
        return static_cast<float>(std::clamp(factor(k), low, high));
    };
    const float length = bounded(0, 10, 100'000) / 5000.0F;
    const float height = bounded(1, 0, 1000) / 1000.0F;
    const float refraction = bounded(2, 0, 400) / 100.0F;
    paintFromCopy(image, [&](const cv::Mat& source, cv::Mat& target) {
        ripple(source, target,
               makeWater(source.size(), length, height, refraction, kCrossSwell, kChop, kShine));
    });
    return false;
}

const char16_t* CWaveFilter::GetName() const {
    return u"Wave";
}

}  // namespace vellora
