#include "filters/Noise.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

constexpr float fade(float t) {
    return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F);
}

// On a row, what a lattice column contributes is linear in x: value + slope * x.
struct ColumnLine {
    float value;
    float slope;
};

ColumnLine columnLine(std::int32_t cellX, std::int32_t cellY, float y, std::uint32_t seed) {
    const auto corner = [&](std::int32_t below) {
        const std::uint32_t bits = cellHash(cellX, cellY + below, seed);
        const float gx = static_cast<float>(bits & 0xFFFFU) * (1.0F / 32768.0F) - 1.0F;
        const float gy = static_cast<float>(bits >> 16U) * (1.0F / 32768.0F) - 1.0F;
        return ColumnLine{gy * (y - static_cast<float>(below)), gx};
    };
    const ColumnLine upper = corner(0);
    const ColumnLine lower = corner(1);
    const float t = fade(y);
    return {upper.value + (lower.value - upper.value) * t,
            upper.slope + (lower.slope - upper.slope) * t};
}

float along(const ColumnLine& left, const ColumnLine& right, float x) {
    const float from = left.value + left.slope * x;
    const float to = right.value + right.slope * (x - 1.0F);
    return from + (to - from) * fade(x);
}

}  // namespace

void addNoise(std::span<float> values, const NoiseRow& row, std::uint32_t seed, float weight) {
    const double floorY = std::floor(row.y);
    const auto cellY = static_cast<std::int32_t>(floorY);
    const auto y = static_cast<float>(row.y - floorY);
    const auto step = static_cast<float>(row.step);
    double cellX = std::floor(row.x);
    ColumnLine left = columnLine(static_cast<std::int32_t>(cellX), cellY, y, seed);
    for (std::size_t first = 0; first < values.size();) {
        const double reach = std::ceil((cellX + 1.0 - row.x) / row.step);
        const std::size_t end =
            std::min(values.size(), std::max(first + 1, static_cast<std::size_t>(reach)));
        const ColumnLine right = columnLine(static_cast<std::int32_t>(cellX) + 1, cellY, y, seed);
        const auto offset =
            static_cast<float>(row.x + static_cast<double>(first) * row.step - cellX);
        float* out = values.data() + first;
        const auto count = static_cast<int>(end - first);
        for (int i = 0; i < count; ++i) {
            out[i] += weight * along(left, right, offset + static_cast<float>(i) * step);
        }
        first = end;
        const double next = std::floor(row.x + static_cast<double>(first) * row.step);
        left = next == cellX + 1.0 ? right
                                   : columnLine(static_cast<std::int32_t>(next), cellY, y, seed);
        cellX = next;
    }
}

float noiseAt(double x, double y, std::uint32_t seed) {
    const double floorX = std::floor(x);
    const double floorY = std::floor(y);
    const auto cellX = static_cast<std::int32_t>(floorX);
    const auto cellY = static_cast<std::int32_t>(floorY);
    const auto inY = static_cast<float>(y - floorY);
    return along(columnLine(cellX, cellY, inY, seed), columnLine(cellX + 1, cellY, inY, seed),
                 static_cast<float>(x - floorX));
}

void addFractalNoise(std::span<float> values, NoiseRow row, std::uint32_t seed, int octaves,
                     float fall) {
    float weight = 1.0F;
    for (int k = 0; k < octaves && row.step * kShortestWave <= 1.0; ++k) {
        addNoise(values, row, seed + static_cast<std::uint32_t>(k), weight);
        weight *= fall;
        // The offsets keep the lattices from lining up.
        row = {row.x * 2.0 + 17.3, row.step * 2.0, row.y * 2.0 + 5.7};
    }
}

}  // namespace vellora
