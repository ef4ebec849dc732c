#pragma once

#include <cmath>
#include <cstdint>

namespace vellora::textures {

/// Noise that repeats seamlessly: coordinates from 0 to 1 span the tile, values lie in 0 to 1.

inline double hashed(int x, int y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                      static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    h = (h ^ (h >> 15U)) * 0x2C1B3C6DU;
    h = (h ^ (h >> 12U)) * 0x297A2D39U;
    return static_cast<double>(h ^ (h >> 15U)) / 4294967295.0;
}

inline int wrapped(int i, int period) {
    return ((i % period) + period) % period;
}

/// Smooth noise with so many cells across and down the tile.
inline double noise(double x, double y, int across, int down, std::uint32_t seed) {
    const double u = x * across;
    const double v = y * down;
    const int i = static_cast<int>(std::floor(u));
    const int j = static_cast<int>(std::floor(v));
    const auto ease = [](double t) { return t * t * (3.0 - 2.0 * t); };
    const double s = ease(u - i);
    const double t = ease(v - j);
    const auto at = [&](int a, int b) {
        return hashed(wrapped(a, across), wrapped(b, down), seed);
    };
    const double top = at(i, j) + (at(i + 1, j) - at(i, j)) * s;
    const double bottom = at(i, j + 1) + (at(i + 1, j + 1) - at(i, j + 1)) * s;
    return top + (bottom - top) * t;
}

/// Sums octaves, each twice as fine and half as strong.
inline double fractal(double x, double y, int across, int down, int octaves, std::uint32_t seed) {
    double sum = 0.0;
    double weight = 0.5;
    double total = 0.0;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * noise(x, y, across << octave, down << octave, seed + octave);
        total += weight;
        weight /= 2;
    }
    return sum / total;
}

}  // namespace vellora::textures
