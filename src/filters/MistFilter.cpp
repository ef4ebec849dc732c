#include "filters/MistFilter.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "base/Random.h"
#include "filters/Noise.h"
#include "filters/PaintFromCopy.h"
#include "filters/StageScale.h"

namespace vellora {
namespace {

// Each row: max, min, advertised default, label.
constexpr FilterParamDescs kParams{{
    {100, 20, 70, label::kMistDensity},
    {},
    {},
}};

constexpr int kThickest = 40;
constexpr float kThickness = 0.075F;   // optical depth of middling mist per unit of density
constexpr float kMostCover = 0.86F;    // of the veil at any point: the photo stays readable
constexpr double kBrightening = 0.14;  // of the mean, at most
constexpr float kWhitest = 246.0F;

// Optical depth of the clouds: octaves of noise whose lattice is itself bent by noise, drawn out
// sideways as if by a slow wind, and thinner toward the top.
void cloudRow(std::span<float> row, double y, double height, double step, std::uint32_t seed) {
    std::vector<float> bendX(row.size());
    std::vector<float> bendY(row.size());
    const NoiseRow wide{0.0, step / 170.0, y / 120.0};
    addFractalNoise(bendX, wide, seed + 100, 2);
    addFractalNoise(bendY, wide, seed + 200, 2);
    const double low = 0.75 + 0.4 * y / height;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double u = static_cast<double>(i) * step / 210.0 + 0.9 * bendX[i];
        const double v = y / 95.0 + 0.7 * bendY[i];
        float sum = 0.0F;
        float weight = 1.0F;
        double frequency = 1.0;
        for (std::uint32_t octave = 0; octave < 4; ++octave) {
            sum += weight * noiseAt(u * frequency + 3.7 * octave, v * frequency, seed + octave);
            weight *= 0.5F;
            frequency *= 2.1;
        }
        const float t = std::clamp(0.5F + 1.25F * sum, 0.0F, 1.0F);
        row[i] = static_cast<float>(low) * (0.05F + 1.35F * t * t * (3.0F - 2.0F * t));
    }
}

// The light in the mist comes from the surroundings of each point and from the scene as a whole.
cv::Mat scatteredLight(const cv::Mat& photo) {
    cv::Mat light;
    const cv::Size coarse(std::min(12, photo.cols), std::min(9, photo.rows));
    cv::resize(photo, light, coarse, 0, 0, cv::INTER_AREA);
    const cv::Scalar scene = cv::mean(light);
    const cv::Matx13f weights(0.114F, 0.587F, 0.299F);
    const double sceneGrey = (scene[0] + scene[1] + scene[2]) / 3.0;
    light.convertTo(light, CV_32F);
    for (auto it = light.begin<cv::Vec3f>(); it != light.end<cv::Vec3f>(); ++it) {
        const float grey =
            0.35F * static_cast<float>((weights * *it)[0]) + 0.65F * static_cast<float>(sceneGrey);
        *it = *it * 0.32F + cv::Vec3f(1.06F, 1.0F, 0.96F) * (0.68F * grey);
    }
    cv::resize(light, light, photo.size(), 0, 0, cv::INTER_LINEAR);
    return light;
}

// Makes the mist light enough to show, while the picture keeps its brightness: night stays night.
void balanceLight(cv::Mat& veil, const cv::Mat& photo) {
    double through = 0.0;
    double cover = 0.0;
    double added = 0.0;
    double before = 0.0;
    for (int y = 0; y < veil.rows; ++y) {
        for (int x = 0; x < veil.cols; ++x) {
            const auto& v = veil.at<cv::Vec4f>(y, x);
            const auto p = photo.at<cv::Vec3b>(y, x);
            const double sum = p[0] + p[1] + p[2];
            before += sum;
            through += sum * v[3];
            cover += 1.0 - v[3];
            added += v[0] + v[1] + v[2];
        }
    }
    constexpr double kThickMist = 0.45;
    const double meanCover = cover / static_cast<double>(veil.total());
    const double wanted = before * (1.0 + kBrightening * std::min(1.0, meanCover / kThickMist));
    const double gain = added > 0.0 ? (wanted - through) / added : 0.0;
    for (auto it = veil.begin<cv::Vec4f>(); it != veil.end<cv::Vec4f>(); ++it) {
        cv::Vec4f& v = *it;
        for (int c = 0; c < 3; ++c) {
            v[c] = std::min(v[c] * static_cast<float>(gain), kWhitest * (1.0F - v[3]));
        }
    }
}

// The veil at the resolution of the stage: per point what it adds to blue, green and red, and the
// share of the photo that it lets through.
cv::Mat makeVeil(const cv::Mat& source, int density, std::uint32_t seed) {
    const double pixelsPerPoint = std::max(1.0, stageScale(source.size()));
    const cv::Size size(std::max(1, static_cast<int>(std::ceil(source.cols / pixelsPerPoint))),
                        std::max(1, static_cast<int>(std::ceil(source.rows / pixelsPerPoint))));
    cv::Mat photo;
    cv::resize(source, photo, size, 0, 0, cv::INTER_AREA);
    const cv::Mat light = scatteredLight(photo);
    const double step = pixelsPerPoint / stageScale(source.size());
    cv::Mat veil(size, CV_32FC4);
    cv::parallel_for_(cv::Range(0, size.height), [&](const cv::Range& rows) {
        std::vector<float> depth(static_cast<std::size_t>(size.width));
        for (int y = rows.start; y < rows.end; ++y) {
            cloudRow(depth, y * step, size.height * step, step, seed);
            for (int x = 0; x < size.width; ++x) {
                const float thickness =
                    kThickness * static_cast<float>(density) * depth[static_cast<std::size_t>(x)];
                const float cover = kMostCover * (1.0F - std::exp(-thickness));
                const cv::Vec3f glow = light.at<cv::Vec3f>(y, x) * cover;
                veil.at<cv::Vec4f>(y, x) = {glow[0], glow[1], glow[2], 1.0F - cover};
            }
        }
    });
    balanceLight(veil, photo);
    return veil;
}

struct Between {
    int from;
    int to;
    float share;  // of `to`
};

// Where the middle of a pixel falls between the middles of the veil's points.
Between between(int pixel, double pointsPerPixel, int points) {
    const double at = std::max(0.0, (pixel + 0.5) * pointsPerPixel - 0.5);
    const int from = std::min(static_cast<int>(at), points - 1);
    return {from, std::min(from + 1, points - 1), static_cast<float>(at - from)};
}

void coverRow(const uchar* source, uchar* target, int columns, std::span<const cv::Vec4f> veil) {
    const int points = static_cast<int>(veil.size());
    const double pointsPerPixel = static_cast<double>(points) / columns;
    for (int x = 0; x < columns; ++x) {
        const Between at = between(x, pointsPerPixel, points);
        const cv::Vec4f& a = veil[static_cast<std::size_t>(at.from)];
        const cv::Vec4f& b = veil[static_cast<std::size_t>(at.to)];
        const float through = a[3] + (b[3] - a[3]) * at.share;
        for (int c = 0; c < 3; ++c) {
            const float added = a[c] + (b[c] - a[c]) * at.share;
            target[3 * x + c] = static_cast<uchar>(source[3 * x + c] * through + added + 0.5F);
        }
    }
}

// Clouds of gradient noise with a bent domain (Perlin, "An image synthesizer", 1985; Ebert et al.,
// "Texturing and modeling", 1994) lie over the photo and attenuate it by the law of Beer and
// Lambert; the light that they scatter toward the viewer is that of the surroundings.
void coverWithMist(const cv::Mat& source, cv::Mat& target, int density) {
    seedFromClock();
    const auto high = static_cast<std::uint32_t>(Rand());
    const std::uint32_t seed = (high << 15U) | static_cast<std::uint32_t>(Rand());
    const cv::Mat veil = makeVeil(source, std::clamp(density, 0, kThickest), seed);
    const double pointsPerRow = static_cast<double>(veil.rows) / source.rows;
    cv::parallel_for_(cv::Range(0, source.rows), [&](const cv::Range& rows) {
        std::vector<cv::Vec4f> mixed(static_cast<std::size_t>(veil.cols));
        for (int y = rows.start; y < rows.end; ++y) {
            const Between at = between(y, pointsPerRow, veil.rows);
            const auto* upper = veil.ptr<cv::Vec4f>(at.from);
            const auto* lower = veil.ptr<cv::Vec4f>(at.to);
            for (std::size_t i = 0; i < mixed.size(); ++i) {
                mixed[i] = upper[i] + (lower[i] - upper[i]) * at.share;
            }
            coverRow(source.ptr(y), target.ptr(y), source.cols, mixed);
        }
    });
}

}  // namespace

CMistFilter::CMistFilter() : FactorFilter(kParams, FilterCategory::ArtEffect, {70}) {}

bool CMistFilter::Apply(IplImage** image) {
    return paintFromCopy(image, [this](const cv::Mat& source, cv::Mat& target) {
        coverWithMist(source, target, static_cast<int>(factor(0) * 0.25));
    });
}

const char16_t* CMistFilter::GetName() const {
    return u"Mist";
}

}  // namespace vellora
