#pragma once

/// @file
/// Noise that is a function of a seed and a position: no state, so any part of a picture can be
/// computed on any thread, in any order, at any resolution.

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellora {

/// Well mixed bits of a lattice cell.
constexpr std::uint32_t cellHash(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                      static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    h = (h ^ (h >> 16U)) * 0x7FEB352DU;
    h = (h ^ (h >> 15U)) * 0x846CA68BU;
    return h ^ (h >> 16U);
}

/// Evenly spread numbers in [0, 1) that belong to one cell, as many as are asked for.
class CellRandom {
public:
    constexpr CellRandom(std::int32_t x, std::int32_t y, std::uint32_t seed)
        : m_bits(cellHash(x, y, seed)) {}

    constexpr float next() {
        m_bits = m_bits * 1664525U + 1013904223U;
        return static_cast<float>(m_bits >> 8U) * (1.0F / 16777216.0F);
    }

    constexpr float between(float low, float high) { return low + (high - low) * next(); }

private:
    std::uint32_t m_bits;
};

/// A row of equidistant sample points in the plane of a noise, whose lattice has unit cells.
struct NoiseRow {
    double x;     ///< Of the first point.
    double step;  ///< From one point to the next.
    double y;     ///< Of all points.
};

/// Adds `weight` times gradient noise (Perlin, 1985, with the quintic fade of 2002) to each value.
/// The noise has mean 0, is 0 at lattice points and stays within -1 and 1. Costs one hash for each
/// lattice cell that the row crosses and a few multiplications for each value.
void addNoise(std::span<float> values, const NoiseRow& row, std::uint32_t seed, float weight);

/// The same noise at one point.
float noiseAt(double x, double y, std::uint32_t seed);

/// The shortest wave that pixels can show: what is finer is left out of fractal noise.
inline constexpr double kShortestWave = 2.0;

/// Adds octaves of noise, each half as long and `fall` times as strong as the one before, starting
/// with weight 1. Octaves too fine for the step are left out, as they would only alias.
void addFractalNoise(std::span<float> values, NoiseRow row, std::uint32_t seed, int octaves,
                     float fall = 0.5F);

}  // namespace vellora
